// A printer description, as libcups parses it. All calls of libcups' PPD functions are in this
// folder.

#ifndef HOST_PPD_PPDFILE_H
#define HOST_PPD_PPDFILE_H

#include <cups/ppd.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/Expected.h"
#include "host/base/JobOptions.h"

struct PPDChoice {
  std::string keyword;
  std::string text;  // localized, UTF-8
};

struct PPDOption {
  std::string keyword;
  std::string text = {};   // localized, UTF-8
  std::string group = {};  // the text of its group
  // Empty: the file names none, or one that is not there, and the printer decides. Custom.VALUE is
  // possible.
  std::string default_choice = {};
  // In the file's order. Custom.VALUE is not among them: see Allows.
  std::vector<PPDChoice> choices = {};
};

// Two choices that the printer description forbids together, by keywords and texts. One may be of
// an option for installed hardware. Where a constraint names more than two choices, each but the
// first makes a pair with the first; where it names one, that one makes a pair with itself.
struct PPDConflict {
  PPDOption first;  // with one choice: the one in conflict
  PPDOption second;
};

// What the texts of options and choices are in.
enum class PPDTexts {
  kUsersLanguage,  // as far as the file has it
  kFilesLanguage   // for those who need no texts: opening takes a third of the time less
};

// Keywords of options and choices are compared exactly, case of letters included, although libcups
// does not: what is refused can be put right, and what is written otherwise is mostly an option of
// every queue (collate, Collate).
class PPDFile {
 public:
  // Opens and parses a file, compressed or not. The failure is what libcups says, with the line.
  static Expected<PPDFile> Open(const std::filesystem::path &path,
                                PPDTexts texts = PPDTexts::kUsersLanguage);

  // The bytes that it was parsed from; empty: it was opened from a file.
  const std::string &source() const { return source_; }

  // Valid as long as this object; never null. The file's defaults are marked.
  ppd_file_t *get() const { return ppd_.get(); }

  // The printer's name for people: NickName, or what comes nearest. UTF-8, never empty.
  std::string Name() const;

  // The value of the first attribute with this keyword, whatever its option part.
  std::optional<std::string> Attribute(const std::string &keyword) const;
  // The values of all attributes with this keyword, in the file's order.
  std::vector<std::string> Attributes(const std::string &keyword) const;

  // ColorDevice is exactly True.
  bool IsColorDevice() const;

  // The options whose choice belongs to a job, in the file's order, each keyword once: not those of
  // installed hardware, not PageRegion, which follows PageSize, and none without choices.
  std::vector<PPDOption> Options() const;

  // The keywords of Options().
  std::vector<std::string> OptionKeywords() const;

  // Whether there is an option, of whatever kind, with this keyword.
  bool HasOption(const std::string &keyword) const;
  // The option; none: there is no such option.
  std::optional<PPDOption> Option(const std::string &keyword) const;
  // Its default choice; empty also where there is no such option.
  std::string DefaultChoice(const std::string &keyword) const;

  // Whether a job may ask for this choice of an option: one that is listed, or Custom.VALUE where
  // the option takes custom values and this one is within its limits, or likewise {NAME=VALUE ...}.
  // False for options that are not there.
  bool Allows(const std::string &option, const std::string &choice) const;

  // The choice that the printer takes in the place of one that it lacks and others of its kind
  // have: *PDESubstituteChoice: "OPTION CHOICE OTHER". None: there is none.
  std::optional<std::string> SubstituteFor(const std::string &option,
                                           const std::string &choice) const;

  // What goes with jobs that come to certain choices: *PDEJobOption: "OPTION CHOICE NAME=VALUE".
  JobOptions GoingWith(const JobOptions &options) const;

  // The option that libcups, which does not look at the case of letters, gives a custom value to
  // that is none of those that Allows knows; empty: all is well.
  std::string TakesUnfitCustomValue(const std::string &option, const std::string &choice) const;

  // The choice of an option that these job options, over the file's defaults, come to; also those
  // that mean the same under another name, such as sides. Empty: none, or no such option.
  std::string ChoiceOf(const std::string &option, const JobOptions &options) const;

  // The choices of all options that these job options, likewise, come to.
  JobOptions Choices(const JobOptions &options) const;

  // The keywords among these options of the file whose choices others, which go by names that every
  // queue takes, would change: sides that of Duplex, media that of PageSize.
  std::set<std::string> ChangedBy(const JobOptions &others, const JobOptions &options) const;

  // What these job options, over the file's defaults, bring together that the constraints forbid;
  // each pair once. Names that every queue takes (media, sides...) count as the choices that they
  // stand for.
  std::vector<PPDConflict> Conflicts(const JobOptions &options) const;

  // The changes to these job options that end all conflicts and leave the option `keep` (empty:
  // none), and the choices that it stands for, as they are. Empty: there are no conflicts. No
  // value: there is no way.
  std::optional<JobOptions> Resolution(const JobOptions &options, const std::string &keep) const;

 private:
  struct Closer {
    void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
  };
  PPDFile(ppd_file_t *ppd, PPDTexts texts);
  // Calls take(group, option) for each of Options().
  template <typename Take>
  void ForOptionsOfJobs(Take take) const;
  // With exactly this keyword; null: there is none.
  const ppd_option_t *Found(const std::string &keyword) const;

  friend Expected<PPDFile> ParsePPD(std::string_view bytes);

  std::unique_ptr<ppd_file_t, Closer> ppd_;
  std::string source_;
};

#endif
