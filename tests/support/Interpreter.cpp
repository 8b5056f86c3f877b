#include "tests/support/Interpreter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <map>
#include <sstream>

#include "tests/support/RunProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace {

double Luminance(Color color) {
  const auto linear = [](int component) {
    const double value = component / 255.0;
    return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

// What stands between the two marks that follow, which it goes behind.
std::optional<std::string> Between(const std::string &text, size_t &place, const std::string &begin,
                                   const std::string &end) {
  const size_t from = text.find(begin, place);
  if (from == std::string::npos) return {};
  const size_t to = text.find(end, from + begin.size());
  if (to == std::string::npos) return {};
  place = to + end.size();
  return text.substr(from + begin.size(), to - from - begin.size());
}

DrawnText TextOf(const std::string &span) {
  DrawnText drawn;
  size_t place = 0;
  std::istringstream line(Between(span, place, "bbox=\"", "\"").value_or(""));
  line >> drawn.begin_x >> drawn.begin_y >> drawn.end_x >> drawn.end_y;
  drawn.font = Between(span, place, "font=\"", "\"").value_or("");
  drawn.size = std::atof(Between(span, place, "size=\"", "\"").value_or("").c_str());
  while (const auto character = Between(span, place, " c=\"", "\"/>")) drawn.text += *character;
  return drawn;
}

std::vector<DrawnText> TextsOf(const std::string &page) {
  std::vector<DrawnText> texts;
  size_t place = 0;
  while (const auto span = Between(page, place, "<span ", "</span>")) {
    texts.push_back(TextOf(*span));
  }
  return texts;
}

// Ghostscript, at work.
class Ghostscript {
 public:
  explicit Ghostscript(const std::vector<std::string> &arguments) : program_(Command(arguments)) {}

  // What it has to complain about, once it has ended.
  std::string Complaint() {
    const RunResult result = program_.Wait();
    if (result.status == 0) return result.err;
    return "exit status " + std::to_string(result.status) + '\n' + result.err;
  }

 private:
  static std::vector<std::string> Command(const std::vector<std::string> &arguments) {
    std::vector<std::string> command = {"gs", "-q", "-dBATCH", "-dNOPAUSE", "-sstdout=%stderr"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
  }

  RunningProgram program_;
};

bool IsNumber(const PrintedPage &page, const DrawnText &drawn) {
  const double beyond_body_text = std::min(page.width, page.height) / 12;
  return drawn.font == "Helvetica-Bold" && drawn.size > beyond_body_text;
}

// Of the middle of the digits, which are about 0.72 of their size high.
double FromMiddle(const PrintedPage &page, const DrawnText &drawn) {
  const double along_x = drawn.end_x - drawn.begin_x, along_y = drawn.end_y - drawn.begin_y;
  const double up = 0.36 * drawn.size / std::hypot(along_x, along_y);
  const double x = (drawn.begin_x + drawn.end_x) / 2 + up * along_y;
  const double y = (drawn.begin_y + drawn.end_y) / 2 - up * along_x;
  return std::hypot(x - page.width / 2, y - page.height / 2);
}

}  // namespace

double Contrast(Color one, Color other) {
  const auto [darker, brighter] = std::minmax({Luminance(one), Luminance(other)});
  return (brighter + 0.05) / (darker + 0.05);
}

Picture::Picture(const std::string &ppm) {
  std::istringstream stream(ppm);
  std::string format;
  int largest = 0;
  const auto skip_comments = [&] {
    while ((stream >> std::ws).peek() == '#')
      stream.ignore(static_cast<std::streamsize>(ppm.size()), '\n');
  };
  stream >> format;
  skip_comments();
  stream >> width_ >> height_ >> largest;
  stream.ignore(1);
  const auto begin = static_cast<size_t>(std::max<std::streamoff>(stream.tellg(), 0));
  const size_t count = static_cast<size_t>(width_) * height_;
  if (!stream || format != "P6" || largest != 255 || ppm.size() - begin < 3 * count) {
    std::cerr << "not a picture: " << ppm.substr(0, 40) << '\n';
    std::abort();
  }
  pixels_.reserve(count);
  for (size_t at = begin; at < begin + 3 * count; at += 3) {
    const auto component = [&](size_t which) {
      return static_cast<unsigned char>(ppm[at + which]);
    };
    pixels_.push_back({component(0), component(1), component(2)});
  }
}

std::optional<Box> Picture::BoundsOf(const Predicate &predicate) const {
  int left = width_, top = height_, right = -1, bottom = -1;
  for (int y = 0; y < height_; ++y) {
    for (int x = 0; x < width_; ++x) {
      if (!predicate(at(x, y))) continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = std::max(bottom, y);
    }
  }
  if (right < 0) return {};
  const double width = width_, height = height_;
  return Box{left / width, top / height, (right + 1) / width, (bottom + 1) / height};
}

double Picture::ShareOf(const Predicate &predicate, const Box &box) const {
  const auto pixel = [](double fraction, int count) {
    return std::clamp(static_cast<int>(std::lround(fraction * count)), 0, count);
  };
  int all = 0, satisfying = 0;
  for (int y = pixel(box.top, height_); y < pixel(box.bottom, height_); ++y) {
    for (int x = pixel(box.left, width_); x < pixel(box.right, width_); ++x) {
      ++all;
      if (predicate(at(x, y))) ++satisfying;
    }
  }
  return all == 0 ? 0 : static_cast<double>(satisfying) / all;
}

std::optional<Color> Picture::MainColor() const {
  std::map<Color, int> counts;
  for (const Color color : pixels_) {
    if (color != kWhitePaper && color != kBlackInk) ++counts[color];
  }
  const auto most =
      std::max_element(counts.begin(), counts.end(),
                       [](const auto &a, const auto &b) { return a.second < b.second; });
  if (most == counts.end()) return {};
  return most->first;
}

std::string PrintedPage::Words() const {
  std::string words;
  for (const DrawnText &drawn : texts) {
    if (!IsNumber(*this, drawn)) words += drawn.text;
  }
  return words;
}

DrawnText PrintedPage::Number() const {
  std::map<std::string, DrawnText> numbers;
  for (const DrawnText &drawn : texts) {
    if (!IsNumber(*this, drawn)) continue;
    const auto [known, is_new] = numbers.emplace(drawn.text, drawn);
    if (!is_new && FromMiddle(*this, drawn) < FromMiddle(*this, known->second)) {
      known->second = drawn;
    }
  }
  if (numbers.empty()) return {};
  DrawnText number = numbers.begin()->second;
  for (auto next = std::next(numbers.begin()); next != numbers.end(); ++next) {
    number.text += '+' + next->first;
  }
  return number;
}

int PrintedPage::NumberDrawings() const {
  return static_cast<int>(std::count_if(texts.begin(), texts.end(), [this](const DrawnText &drawn) {
    return IsNumber(*this, drawn);
  }));
}

Interpretation Interpret(const std::string &postscript, int dots_per_inch) {
  const TemporaryFolder folder;
  const std::string file = folder.Write("job.ps", postscript);
  const std::string texts = folder.path() / "texts";
  Interpretation result;
  Ghostscript text_writer({"-sDEVICE=txtwrite", "-dTextFormat=0", "-sOutputFile=" + texts, file});
  Ghostscript painter({"-sDEVICE=ppmraw", "-r" + std::to_string(dots_per_inch),
                       "-sOutputFile=" + (folder.path() / "%d.ppm").string(), file});
  result.complaint = text_writer.Complaint() + painter.Complaint();

  std::vector<Picture> pictures;
  for (int side = 1;; ++side) {
    const std::string ppm = ContentOf(folder.path() / (std::to_string(side) + ".ppm"));
    if (ppm.empty()) break;
    pictures.emplace_back(ppm);
  }
  const std::string content = ContentOf(texts);
  size_t place = 0;
  while (const auto page = Between(content, place, "<page>", "</page>")) {
    result.pages.push_back({0, 0, TextsOf(*page), {}});
  }
  if (result.pages.empty() != pictures.empty() ||
      (!result.pages.empty() && pictures.size() % result.pages.size() != 0)) {
    result.complaint += std::to_string(result.pages.size()) + " pages with texts, but " +
                        std::to_string(pictures.size()) + " with pixels\n";
    result.pages.clear();
    return result;
  }
  for (size_t at = 0; at < pictures.size(); ++at) {
    PrintedPage &page = result.pages[at * result.pages.size() / pictures.size()];
    page.width = pictures[at].width() * 72.0 / dots_per_inch;
    page.height = pictures[at].height() * 72.0 / dots_per_inch;
    page.pictures.push_back(std::move(pictures[at]));
  }
  return result;
}

std::vector<std::string> JobsIn(std::string_view output) {
  std::vector<std::string> jobs;
  while (!output.empty()) {
    const std::string_view job = output.substr(0, output.find('\004'));
    if (job.find_first_not_of(" \n\r\t") != std::string_view::npos) jobs.emplace_back(job);
    output.remove_prefix(std::min(output.size(), job.size() + 1));
  }
  return jobs;
}

std::vector<PrintedPage> PagesOf(const std::string &output, int dots_per_inch) {
  std::vector<PrintedPage> pages;
  for (const std::string &job : JobsIn(output)) {
    Interpretation result = Interpret(job, dots_per_inch);
    EXPECT_EQ(result.complaint, "");
    std::move(result.pages.begin(), result.pages.end(), std::back_inserter(pages));
  }
  EXPECT_FALSE(pages.empty()) << "nothing was printed";
  return pages;
}

std::string NumbersOf(const std::vector<PrintedPage> &pages) {
  std::string numbers;
  for (const PrintedPage &page : pages) {
    const std::string number = page.Number().text;
    numbers += (numbers.empty() ? "" : " ") + (number.empty() ? "-" : number);
  }
  return numbers;
}

std::string PdfOf(const std::string &postscript) {
  const TemporaryFolder folder;
  const std::string pdf = folder.path() / "document.pdf";
  const std::string complaint =
      Ghostscript({"-dALLOWPSTRANSPARENCY", "-sDEVICE=pdfwrite", "-sOutputFile=" + pdf,
                   folder.Write("document.ps", postscript)})
          .Complaint();
  EXPECT_EQ(complaint, "");
  return ContentOf(pdf);
}
