// What the project's Markdown files hold beside their words.

#ifndef TESTS_DOCS_MARKDOWN_H
#define TESTS_DOCS_MARKDOWN_H

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// Those of the source tree that readers are sent to.
std::vector<std::filesystem::path> MarkdownFiles();

struct Command {
  int line = 0;
  std::string text;                   // for a shell
  int status = 0;                     // what it ends with
  std::optional<std::string> output;  // what it says; none: whatever it likes
};

// Every line of code that is indented, or fenced without a language, is a command; a backslash at
// its end joins the next. The comment "exit status N" says that it ends with another status than 0.
// A fence of the language "output" holds what the command before it says. Other fences are no
// commands.
std::vector<Command> CommandsIn(const std::string &markdown);

struct Quote {
  int line = 0;
  std::string text;
};

// The targets of links and pictures, and what stands between backquotes, outside of code.
std::vector<Quote> LinksIn(const std::string &markdown);
std::vector<Quote> CodeWordsIn(const std::string &markdown);

// The names under which headings can be linked to.
std::vector<std::string> AnchorsIn(const std::string &markdown);

#endif
