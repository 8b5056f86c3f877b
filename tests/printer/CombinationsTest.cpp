// Every combination of choices, run by the interpreter as one stream of jobs after one another.

#include <cups/ppd.h>
#include <gmock/gmock.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/RunProgram.h"

using testing::StartsWith;

namespace {

using Choices = std::vector<std::pair<std::string, std::string>>;

class Printer {
 public:
  explicit Printer(const char *name)
      : ppd_(ppdOpenFile((std::string(BINARY_DIRECTORY "/printer/") + name).c_str())) {
    EXPECT_NE(nullptr, ppd_);
  }

  // What the print system sends in the setup of a document.
  std::string Setup(const Choices &choices) const {
    ppdMarkDefaults(ppd_.get());
    for (const auto &[option, choice] : choices) {
      EXPECT_EQ(0, ppdMarkOption(ppd_.get(), option.c_str(), choice.c_str()));
      EXPECT_TRUE(ppdIsMarked(ppd_.get(), option.c_str(), choice.c_str())) << option << choice;
    }
    const std::unique_ptr<char, decltype(&free)> code(
        ppdEmitString(ppd_.get(), PPD_ORDER_ANY, 0.0f), &free);
    // The print system catches what goes wrong in it; here it shall be seen.
    std::string setup = code.get();
    for (const char *guard : {"[{\n", "} stopped cleartomark\n"}) {
      for (size_t place; (place = setup.find(guard)) != std::string::npos;) {
        setup.erase(place, std::string(guard).size());
      }
    }
    return setup;
  }

  std::vector<std::string> ChoicesOf(const char *keyword) const {
    std::vector<std::string> choices;
    const ppd_option_t *option = ppdFindOption(ppd_.get(), keyword);
    for (int index = 0; index < option->num_choices; ++index) {
      choices.push_back(option->choices[index].choice);
    }
    return choices;
  }

 private:
  struct Closer {
    void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
  };
  std::unique_ptr<ppd_file_t, Closer> ppd_;
};

// The page tells in the interpreter's output what was drawn and what went wrong, errors that were
// caught on the way included.
constexpr char kPage[] =
    "count 0 ne countdictstack 3 ne or { (operands or dictionaries are left) = } if\n"
    "$error /errorname get null ne { (an error was caught: ) print $error /errorname get = } if\n"
    "showpage\n";

struct Box {
  double left, bottom, right, top;
  bool IsEmpty() const { return right <= left; }
};

// What the interpreter painted on each page; all else that it says is a failure.
std::vector<Box> BoxesOf(const std::string &program) {
  const TemporaryFolder folder;
  const RunResult result =
      RunProgram({"gs", "-q", "-dSAFER", "-dNOPAUSE", "-dBATCH", "-sDEVICE=bbox", "-r300",
                  folder.Write("all.ps", "%!PS\n" + program)});
  EXPECT_EQ(0, result.status);
  EXPECT_EQ("", result.out);
  std::vector<Box> boxes;
  std::istringstream lines(result.err);
  for (std::string line; std::getline(lines, line);) {
    Box box{};
    if (line.starts_with("%%HiResBoundingBox:")) {
      EXPECT_EQ(4, std::sscanf(line.c_str(), "%%%%HiResBoundingBox: %lf %lf %lf %lf", &box.left,
                               &box.bottom, &box.right, &box.top));
      boxes.push_back(box);
    } else {
      EXPECT_THAT(line, StartsWith("%%BoundingBox:"));
    }
  }
  return boxes;
}

struct Combination {
  Choices choices;
  bool numbers;
};

std::vector<Combination> AllCombinations(const Printer &printer) {
  std::vector<Combination> all{{{}, false}};
  const auto multiply = [&all](const std::string &option, const std::vector<std::string> &choices) {
    std::vector<Combination> more;
    for (const std::string &choice : choices) {
      for (Combination combination : all) {
        combination.choices.emplace_back(option, choice);
        combination.numbers |= choice == "On";
        more.push_back(combination);
      }
    }
    all = more;
  };
  for (const char *option : {"VQBNSize", "VQBNDensity", "VQBNColor", "VQBNPlacement"}) {
    multiply(option, printer.ChoicesOf(option));
  }
  multiply("VQStartNumber", {"1", "2", "9", "10", "99", "100", "998", "999"});
  // Last, so that neighbors switch on after one another, and then off.
  multiply("VQBackgroundNumbering", {"On", "Off"});
  return all;
}

void ExpectNumbersInTheMiddle(const char *name, size_t combinations) {
  const Printer printer(name);
  const std::vector<Combination> all = AllCombinations(printer);
  EXPECT_EQ(combinations, all.size());
  std::string program;
  for (const Combination &combination : all) {
    program += printer.Setup(combination.choices) + kPage + kPage;
  }
  const std::vector<Box> boxes = BoxesOf(program);
  ASSERT_EQ(2 * all.size(), boxes.size());
  for (size_t page = 0; page < boxes.size(); ++page) {
    std::string choices;
    for (const auto &[option, choice] : all[page / 2].choices)
      choices += option + "=" + choice + " ";
    SCOPED_TRACE(choices);
    const Box &box = boxes[page];
    ASSERT_EQ(all[page / 2].numbers, !box.IsEmpty());
    if (box.IsEmpty()) continue;
    EXPECT_NEAR(595 / 2.0, (box.left + box.right) / 2, 2);
    EXPECT_NEAR(842 / 2.0, (box.bottom + box.top) / 2, 2);
    EXPECT_GT(box.left, 20);
    EXPECT_GT(box.bottom, 20);
  }
}

}  // namespace

TEST(Combinations, NoneRaisesAnErrorAndEachNumberIsInTheMiddleOfThePaper) {
  ExpectNumbersInTheMiddle("VelmoraNumbering.ppd", 2UL * 3 * 3 * 7 * 8 * 2);
}

TEST(Combinations, SoItIsWithoutColor) {
  ExpectNumbersInTheMiddle("VelmoraNumberingMono.ppd", 2UL * 3 * 3 * 1 * 8 * 2);
}

// Every job of a queue carries the code of Off.
TEST(Combinations, ADeviceWithoutPageProceduresIsLeftAlone) {
  const Printer printer("VelmoraNumbering.ppd");
  for (const char *valid : {"On", "Off"}) {
    const TemporaryFolder folder;
    // Paper sizes and duplex are not for such a device.
    std::string setup = printer.Setup({{"VQBackgroundNumbering", valid}});
    setup.erase(0, setup.find("%%BeginFeature: *VQBNSize"));
    const std::string file =
        folder.Write("device.ps", "%!PS\nnulldevice\n" + setup + "count = quit\n");
    const RunResult result = RunProgram({"gs", "-q", "-dSAFER", "-dNODISPLAY", file});
    EXPECT_EQ(0, result.status);
    EXPECT_EQ("0\n", result.out + result.err) << valid;
  }
}
