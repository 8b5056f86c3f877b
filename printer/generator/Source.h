// What the printer's options are made from.

#ifndef PRINTER_GENERATOR_SOURCE_H
#define PRINTER_GENERATOR_SOURCE_H

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

// A file of the source tree that has not what is needed; the message says which and what.
class SourceError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

// The file as it is. Throws SourceError.
std::string ReadText(const std::filesystem::path &path);

// The PostScript of a file without its comment lines and indentation. Throws SourceError.
std::string ReadPostScript(const std::filesystem::path &path);

// A property list whose entries are asked for by their way from the root.
class SourceList {
 public:
  // Throws SourceError.
  explicit SourceList(std::filesystem::path path);

  // Each throws SourceError where there is no such entry, or one of another type.
  std::string String(const std::string &section, const std::string &key) const;
  int Integer(const std::string &section, const std::string &key) const;
  std::vector<std::string> Strings(const std::string &section, const std::string &key) const;

 private:
  const nlohmann::json &Entry(const std::string &section, const std::string &key) const;
  template <typename Value>
  Value Get(const std::string &section, const std::string &key) const;

  std::filesystem::path path_;
  nlohmann::json root_;
};

// Texts by language, from the folders LANGUAGE.lproj that stand in these folders: the files of one
// language are one table.
class Texts {
 public:
  // Throws SourceError. There must be English.
  explicit Texts(const std::vector<std::filesystem::path> &folders);

  // As PPD files name them (de, pt_BR, zh_CN), sorted, without English.
  std::vector<std::string> Translations() const;
  // An empty language: English. Throws SourceError where there is no such text.
  const std::string &Text(const std::string &language, const std::string &key) const;

 private:
  std::map<std::string, std::map<std::string, std::string>> languages_;
};

#endif
