#include "tests/macos/ClassMetadata.h"

#include <map>
#include <set>
#include <string_view>

#include "tests/support/ClassTable.h"

namespace {

constexpr std::string_view kClassSymbol = "_OBJC_CLASS_$_";

std::string LastWord(const std::string &line) { return line.substr(line.find_last_of(" \t") + 1); }

std::string ClassName(const std::string &symbol) { return symbol.substr(kClassSymbol.size()); }

// "@\"NSString\"" is written as the class's name.
std::string FieldType(const std::string &encoding) {
  return encoding.starts_with("@\"") ? encoding.substr(2, encoding.size() - 3) : encoding;
}

// A method's implementation, "-[Class(Category) selector:]", wherever it stands.
void AddMethod(const std::string &line, std::map<std::string, ClassEntry> &classes) {
  for (const char *sign : {"-[", "+["}) {
    const auto start = line.find(sign);
    if (start == std::string::npos) continue;
    const std::string name = line.substr(start + 2, line.find_first_of("( ", start) - start - 2);
    const auto selector = line.find(' ', start) + 1;
    classes[name].methods.insert(std::string{sign[0], ' '} +
                                 line.substr(selector, line.rfind(']') - selector));
  }
}

}  // namespace

std::string ClassMetadata(const std::vector<std::string> &lines) {
  std::map<std::string, ClassEntry> classes;
  bool in_class_list = false;  // categories repeat the class that they belong to
  bool in_class = false;       // and not in its metaclass
  bool next_is_protocol = false;
  std::string current, name;
  for (const std::string &line : lines) {
    const auto has = [&](std::string_view text) { return line.find(text) != std::string::npos; };
    if (line.starts_with("Contents of")) in_class_list = has("__objc_classlist");
    if (has(" imp ")) AddMethod(line, classes);
    if (!in_class_list) continue;
    if (line.starts_with("00000") && has(kClassSymbol)) {
      current = ClassName(LastWord(line));
      in_class = true;
    } else if (line.starts_with("Meta Class")) {
      in_class = false;
    } else if (!in_class) {
      continue;
    } else if (has(" superclass ") && has(kClassSymbol)) {
      classes[current].superclass = ClassName(LastWord(line));
    } else if (has("list[")) {
      next_is_protocol = true;
    } else if (has(" name 0x")) {
      name = LastWord(line);
      if (next_is_protocol) classes[current].protocols.push_back(name);
      next_is_protocol = false;
    } else if (has(" type 0x")) {
      classes[current].fields.push_back(name + ' ' + FieldType(LastWord(line)));
    } else if (has("attributes 0x") && has(",V")) {
      classes[current].properties.push_back(name + ' ' + LastWord(line));
    }
  }
  return ClassTable(classes);
}
