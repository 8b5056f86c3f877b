#include "portal/Mapping.h"

#include <algorithm>

#include "portal/MappedValues.h"
#include "portal/Texts.h"

namespace {

using Given = MappingRow::Given;
using enum MappingRow::Place;

constexpr char kQueueKey[] = "printer";

// What is answered.
Given LeftOut(const Value *, const Chosen &) { return std::nullopt; }
Given One(const Value *, const Chosen &) { return "1"; }
Given False(const Value *, const Chosen &) { return "false"; }
Given AllPages(const Value *, const Chosen &) { return "all"; }

Given Queue(const Value *, const Chosen &chosen) { return chosen.queue; }

// Of the paper, where the dialog knows it.
template <auto Part>
Given OfPaper(const Value *sent, const Chosen &chosen) {
  if (chosen.paper) return Part(*chosen.paper);
  return sent == nullptr ? std::nullopt : Given(*sent);
}

Given NameOf(const Paper &paper) { return PaperName(paper); }
Given PpdNameOf(const Paper &paper) {
  const std::string name = PpdPaperName(paper);
  return name.empty() ? std::nullopt : Given(name);
}
Given ShownNameOf(const Paper &paper) { return ShownPaperName(paper); }
Given WidthTextOf(const Paper &paper) { return DecimalText(paper.width); }
Given HeightTextOf(const Paper &paper) { return DecimalText(paper.height); }
template <double Paper::*Measure>
Given MeasureOf(const Paper &paper) {
  return paper.*Measure;
}

}  // namespace

const std::vector<MappingRow> &MappingTable() {
  static const std::vector<MappingRow> table = {
      {kSettings, "n-copies", "copies", TakeCopies, One},
      {kSettings, "collate", "collate", TakeCollating, False},
      {kSettings, "print-pages", {}, nullptr, GivePages},
      {kSettings, "page-ranges", "page-ranges", TakeRanges, LeftOut},
      {kSettings, "page-set", "page-set", TakePageSet, AllPages},
      {kSettings, "reverse", "outputorder", TakeOrder, False},
      {kSettings, "number-up", "number-up", TakeNumberUp, One},
      {kSettings, "number-up-layout", "number-up-layout", TakeNumberUpLayout, LeftOut},
      {kSettings, "duplex", "sides", TakeSides, GiveSides},
      {kSettings, "use-color", "print-color-mode", TakeColor},
      {kSettings, "quality", "print-quality", TakeQuality},
      {kPageSetup, "PPDName", "media", TakePpdPaper, OfPaper<PpdNameOf>},
      {kPageSetup, "Name", "media", TakeSetUpPaper, OfPaper<NameOf>},
      {kPageSetup, "DisplayName", {}, nullptr, OfPaper<ShownNameOf>},
      {kPageSetup, "Width", "media", TakeSetUpSize, OfPaper<MeasureOf<&Paper::width>>},
      {kPageSetup, "Height", {}, nullptr, OfPaper<MeasureOf<&Paper::height>>},
      {kPageSetup, "MarginTop", {}, nullptr, OfPaper<MeasureOf<&Paper::top>>},
      {kPageSetup, "MarginBottom", {}, nullptr, OfPaper<MeasureOf<&Paper::bottom>>},
      {kPageSetup, "MarginLeft", {}, nullptr, OfPaper<MeasureOf<&Paper::left>>},
      {kPageSetup, "MarginRight", {}, nullptr, OfPaper<MeasureOf<&Paper::right>>},
      {kPageSetup, "Orientation"},
      {kSettings, "paper-format", "media", TakePaperFormat, OfPaper<NameOf>},
      {kSettings, "paper-width", "media", TakePaperSize, OfPaper<WidthTextOf>},
      {kSettings, "paper-height", {}, nullptr, OfPaper<HeightTextOf>},
      {kSettings, "orientation"},
      {kSettings, "scale"},
      {kSettings, "default-source"},
      {kSettings, "media-type"},
      {kSettings, "output-bin"},
      {kSettings, "finishings"},
      {kSettings, "resolution"},
      {kSettings, "resolution-x"},
      {kSettings, "resolution-y"},
      {kSettings, "printer-lpi"},
      {kSettings, "dither"},
      {kSettings, "output-uri", {}, nullptr, LeftOut},
      {kSettings, "output-basename", {}, nullptr, LeftOut},
      {kSettings, "output-dir", {}, nullptr, LeftOut},
      {kSettings, "output-file-format", {}, nullptr, LeftOut},
      {kSettings, kQueueKey, {}, nullptr, Queue},
  };
  return table;
}

JobOptions OptionsOf(const JobWords &sent) {
  JobOptions options;
  for (const MappingRow &row : MappingTable()) {
    if (row.take == nullptr) continue;
    const std::string value = row.take(row.place == kSettings ? sent.settings : sent.page_setup);
    if (!value.empty()) options.emplace(row.option, value);
  }
  return options;
}

std::string QueueOf(const JobWords &sent) {
  const auto *name = Find<std::string>(sent.settings, kQueueKey);
  return name != nullptr && IsQueueName(*name) ? *name : "";
}

JobWords AnswerTo(const JobWords &sent, const Chosen &chosen) {
  JobWords answer = sent;
  for (const MappingRow &row : MappingTable()) {
    if (row.give == nullptr) continue;
    Dictionary &words = row.place == kSettings ? answer.settings : answer.page_setup;
    const std::string key(row.key);
    const auto found = words.find(key);
    if (auto value = row.give(found == words.end() ? nullptr : &found->second, chosen)) {
      words.insert_or_assign(key, *value);
    } else {
      words.erase(key);
    }
  }
  std::erase_if(answer.settings, [](const auto &word) {
    return std::string_view(word.first).starts_with(kOfPrinters);
  });
  return answer;
}
