#include "tests/docs/Markdown.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <sstream>

namespace fs = std::filesystem;

namespace {

enum class Kind { kWords, kCode, kOutput, kOtherFence };

struct Line {
  int number;
  Kind kind;
  std::string text;  // of code without its indentation
};

constexpr std::string_view kFence = "```";

bool IsBlank(const std::string &text) { return text.find_first_not_of(' ') == std::string::npos; }

Kind KindOfFence(const std::string &language) {
  if (language.empty()) return Kind::kCode;
  return language == "output" ? Kind::kOutput : Kind::kOtherFence;
}

std::vector<Line> LinesOf(const std::string &markdown) {
  std::vector<Line> lines;
  std::istringstream text(markdown);
  std::optional<Kind> fence;
  bool code_may_begin = true;
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    ++number;
    const size_t indentation = std::min(line.find_first_not_of(' '), line.size());
    if (line.compare(indentation, kFence.size(), kFence) == 0) {
      const std::string language = line.substr(indentation + kFence.size());
      fence = fence ? std::nullopt : std::optional(KindOfFence(language));
    } else if (fence) {
      lines.push_back({number, *fence, line});
    } else if (IsBlank(line)) {
      code_may_begin = true;
    } else if (indentation >= 4 && code_may_begin) {
      lines.push_back({number, Kind::kCode, line.substr(indentation)});
    } else {
      code_may_begin = false;
      lines.push_back({number, Kind::kWords, line});
    }
  }
  return lines;
}

std::vector<Quote> Quotes(const std::string &markdown, const char *expression) {
  const std::regex regex(expression);
  std::vector<Quote> quotes;
  for (const Line &line : LinesOf(markdown)) {
    if (line.kind != Kind::kWords) continue;
    for (std::sregex_iterator match(line.text.begin(), line.text.end(), regex), end; match != end;
         ++match) {
      quotes.push_back({line.number, (*match)[1]});
    }
  }
  return quotes;
}

}  // namespace

std::vector<fs::path> MarkdownFiles() {
  const fs::path source = SOURCE_DIRECTORY;
  std::vector<fs::path> files = {source / "README.md", source / "CONTRIBUTING.md"};
  for (const auto &entry : fs::directory_iterator(source / "docs")) {
    if (entry.path().extension() == ".md") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

std::vector<Command> CommandsIn(const std::string &markdown) {
  const std::regex status(R"(#.*\bexit status (\d+))");
  std::vector<Command> commands;
  bool goes_on = false;
  for (const Line &line : LinesOf(markdown)) {
    if (line.kind == Kind::kOutput && !commands.empty()) {
      std::optional<std::string> &output = commands.back().output;
      output = output.value_or("") + line.text + '\n';
    }
    if (line.kind != Kind::kCode || IsBlank(line.text)) continue;
    if (!goes_on) commands.push_back({.line = line.number, .text = "", .output = std::nullopt});
    Command &command = commands.back();
    command.text += line.text;
    goes_on = command.text.ends_with('\\');
    if (goes_on) command.text.pop_back();
    if (std::smatch match; std::regex_search(command.text, match, status)) {
      command.status = std::stoi(match[1]);
    }
  }
  return commands;
}

std::vector<Quote> LinksIn(const std::string &markdown) {
  return Quotes(markdown, R"(\]\(([^)]*)\))");
}

std::vector<Quote> CodeWordsIn(const std::string &markdown) {
  return Quotes(markdown, "`([^`]+)`");
}

std::vector<std::string> AnchorsIn(const std::string &markdown) {
  std::vector<std::string> anchors;
  for (const Line &line : LinesOf(markdown)) {
    const size_t text = line.text.find_first_not_of('#');
    if (line.kind != Kind::kWords || text == 0 || text == std::string::npos) continue;
    std::string anchor;
    for (const unsigned char character : line.text.substr(text + 1)) {
      if (std::isalnum(character) != 0 || character == '-' || character >= 128) {
        anchor += static_cast<char>(std::tolower(character));
      } else if (character == ' ') {
        anchor += '-';
      }
    }
    anchors.push_back(anchor);
  }
  return anchors;
}
