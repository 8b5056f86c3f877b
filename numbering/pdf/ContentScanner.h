// What the instructions of a page leave behind: whoever draws after them must know.

#ifndef NUMBERING_PDF_CONTENTSCANNER_H
#define NUMBERING_PDF_CONTENTSCANNER_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace numbering {

class ContentScanner {
 public:
  // Told where each restore stands of a state that the page has not saved.
  explicit ContentScanner(std::function<void(size_t at)> excess_restore = {});

  // Takes the next part; parts may end anywhere.
  void Take(std::string_view part);
  // After each stream, the last one too: no word and no image goes on in the next.
  void EndStream();

  // To be asked when all has been taken.
  //
  // What ends all that the page has begun and not ended.
  std::string Closing() const;
  // How often the page restores a state that it has not saved. Most viewers pass over that, some go
  // back to what it began with.
  size_t excess_restores() const { return excess_restores_; }
  // Where an operand begins that never ends, or the end of all.
  size_t sound_size() const;
  size_t size() const { return size_; }
  bool IsSound() const { return sound_size() == size_; }

 private:
  enum class Within { Nothing, Word, Name, String, Hex, Comment, Image, AfterImage };

  void Byte(char byte);
  void Begin(char byte);
  void EndWord();
  void InString(char byte);
  void InImage(char byte);
  void AfterImage(char byte);
  void EndImage();
  void Open(Within within);
  void Bracket(int change);

  Within within_ = Within::Nothing;
  std::string word_;                  // the one that is being read; of a long one, its beginning
  std::string after_;                 // what follows what may be the end of an image
  size_t size_ = 0;                   // of all that was taken
  size_t begin_ = 0;                  // of the word or operand
  size_t bracket_ = 0;                // where the outermost array or dictionary begins
  int brackets_ = 0;                  // how many are open; a dictionary has two
  std::optional<size_t> image_ = {};  // where it begins
  int parentheses_ = 0;               // of a string
  bool escaped_ = false;
  bool hex_began_ = false;  // < was read, and nothing after it
  int tail_ = 0;            // how much of blank, E, I was read of an image

  size_t saves_ = 0;
  size_t marks_ = 0;
  bool in_text_ = false;
  size_t excess_restores_ = 0;
  std::function<void(size_t at)> excess_restore_;
};

}  // namespace numbering

#endif
