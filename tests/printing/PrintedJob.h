// Jobs that are printed on a real print server, and their pages.

#ifndef TESTS_PRINTING_PRINTEDJOB_H
#define TESTS_PRINTING_PRINTEDJOB_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/support/Interpreter.h"
#include "tests/support/PrivateServer.h"

using Settings = std::map<std::string, std::string>;

// Numbering switched on, beginning with 25, and more.
Settings On(const Settings &more = {});

// The server of all tests here, with these queues, each once a job needs it
//   Color, Mono      of the PPD files that are built,
//   Plain            of one that declares numbering and does nothing for it,
//   Pdftops, Pdftocairo, Hybrid
//                    as Color, with these makers of PostScript,
//   Marked           as Color, drawing a red mark at the begin and a green one at the end of a
//   page, TwoUp            as Color, its device putting two pages side by side on a sheet side.
PrivateServer &Server();

// A job, sent by `pdeprint print` when it is made. Jobs that do not differ are one.
class PrintedJob {
 public:
  explicit PrintedJob(const Settings &settings, const std::string &document,
                      const std::string &queue = "Color");
  PrintedJob(const Settings &settings, const std::vector<std::string> &documents,
             const std::string &queue = "Color");
  // Sent by a command, run in the server's environment, that says the request id.
  explicit PrintedJob(const std::vector<std::string> &command);

  int number() const { return number_; }
  // What the printer got, once the job has ended.
  const std::string &Output() const;
  // Throws where there are none.
  const std::vector<PrintedPage> &Pages() const;
  // "25 26 27", as NumbersOf.
  std::string Numbers() const { return NumbersOf(Pages()); }

 private:
  int number_ = 0;
};

// Where the pixels of the number are, which are those of the page's main color. There being none
// fails the test.
Box NumberBox(const PrintedPage &page);
Color NumberColor(const PrintedPage &page);

// The number is in the middle of the paper, within one percent of its sides.
void ExpectInTheMiddle(const PrintedPage &page);

// The number keeps a distance of five percent of the paper from all edges, but for a pixel.
void ExpectAwayFromTheEdges(const PrintedPage &page);

// Where the page without a number has ink, the numbered one has the same.
void ExpectContentUnchanged(const PrintedPage &numbered, const PrintedPage &plain);

// Every pixel is the same.
void ExpectSamePages(const std::vector<PrintedPage> &expected,
                     const std::vector<PrintedPage> &actual);

#endif
