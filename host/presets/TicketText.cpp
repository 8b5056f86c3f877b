#include "host/presets/TicketText.h"

#include <libxml/xmlreader.h>

#include <algorithm>
#include <memory>

#include "host/base/Localized.h"

namespace {

constexpr int kDeepest = 100;

struct ReaderCloser {
  void operator()(xmlTextReader *reader) const { xmlFreeTextReader(reader); }
};

// Null is none.
std::string_view View(const xmlChar *text) {
  return text == nullptr ? "" : reinterpret_cast<const char *>(text);
}

bool IsCollection(const xmlChar *name) { return View(name) == "dict" || View(name) == "array"; }

bool IsPlain(const xmlDtd *type) {
  return type == nullptr || (type->children == nullptr &&
                             View(type->SystemID).find_first_of("<>") == std::string_view::npos);
}

Failure Damaged() { return Failure{Localized("the file is damaged or cut off")}; }

Expected<void> CheckNode(xmlTextReader *reader) {
  switch (xmlTextReaderNodeType(reader)) {
    case XML_READER_TYPE_ELEMENT:
      // The root is at depth 0. Only there is all of the document type known.
      if (xmlTextReaderDepth(reader) == 0 &&
          !IsPlain(xmlGetIntSubset(xmlTextReaderCurrentNode(reader)->doc))) {
        return Damaged();
      }
      if (xmlTextReaderDepth(reader) > kDeepest &&
          IsCollection(xmlTextReaderConstLocalName(reader))) {
        return Failure{Localized("it is nested deeper than 100 levels")};
      }
      return {};
    case XML_READER_TYPE_ENTITY_REFERENCE:
    case XML_READER_TYPE_PROCESSING_INSTRUCTION:
      return Damaged();
    default:
      return {};
  }
}

Expected<void> CheckMarkup(std::string_view document) {
  const std::unique_ptr<xmlTextReader, ReaderCloser> reader(
      xmlReaderForMemory(document.data(), static_cast<int>(document.size()), nullptr, nullptr,
                         XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
  if (reader == nullptr) return Damaged();
  int more = 0;
  while ((more = xmlTextReaderRead(reader.get())) == 1) {
    if (auto done = CheckNode(reader.get()); !done) return done;
  }
  if (more != 0) return Damaged();
  return {};
}

std::string WithUtf8Declaration(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
  if (text.starts_with("<?xml")) {
    const size_t end = text.find("?>");
    if (end != std::string_view::npos) text.remove_prefix(end + 2);
  }
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + std::string(text);
}

}  // namespace

Expected<std::string> TicketDocument(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (bytes.empty()) return Failure{Localized("the file is empty")};
  if (bytes.size() > kLargestTicket) {
    return Failure{Localized("the file is larger than 1 MiB")};
  }
  if (bytes.find("<plist") == std::string_view::npos) {
    return Failure{Localized("there is no <plist> in it")};
  }
  if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  std::string document = WithUtf8Declaration(bytes);
  if (auto done = CheckMarkup(document); !done) return done.failure();
  return document;
}
