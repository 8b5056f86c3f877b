// The classes of the built bundle, as the runtime knows them.

#import <objc/runtime.h>

#include <cstdlib>
#include <memory>
#include <string>

#import "tests/support/BuiltBundle.h"
#include "tests/support/ClassTable.h"
#import "tests/support/ObjCTest.h"

namespace {

template <typename Item>
std::unique_ptr<Item, decltype(&free)> Owned(Item *list) {
  return {list, free};
}

std::string FieldType(Ivar field) {
  const std::string encoding = ivar_getTypeEncoding(field);
  return encoding.starts_with("@\"") ? encoding.substr(2, encoding.size() - 3) : encoding;
}

ClassEntry Entry(Class cls) {
  ClassEntry entry;
  entry.superclass = class_getName(class_getSuperclass(cls));
  unsigned count = 0;
  const auto protocols = Owned(class_copyProtocolList(cls, &count));
  for (unsigned i = 0; i < count; ++i) {
    entry.protocols.push_back(protocol_getName(protocols.get()[i]));
  }
  const auto fields = Owned(class_copyIvarList(cls, &count));
  for (unsigned i = 0; i < count; ++i) {
    const Ivar field = fields.get()[i];
    entry.fields.push_back(std::string(ivar_getName(field)) + ' ' + FieldType(field));
  }
  const auto methods = Owned(class_copyMethodList(cls, &count));
  for (unsigned i = 0; i < count; ++i) {
    entry.methods.insert(std::string("- ") + sel_getName(method_getName(methods.get()[i])));
  }
  const auto class_methods = Owned(class_copyMethodList(object_getClass(cls), &count));
  for (unsigned i = 0; i < count; ++i) {
    entry.methods.insert(std::string("+ ") + sel_getName(method_getName(class_methods.get()[i])));
  }
  return entry;
}

// The table without properties, of which this runtime is not told.
std::string WithoutProperties(const std::string &table) {
  std::string lines;
  for (std::size_t start = 0, end; start < table.size(); start = end) {
    end = table.find('\n', start) + 1;
    const std::string line = table.substr(start, end - start);
    if (!line.starts_with("  property ")) lines += line;
  }
  return lines;
}

}  // namespace

// Names, superclasses, protocols, fields in their order and selectors.
OBJC_TEST(Classes, AreThoseOfTheTable) {
  std::map<std::string, ClassEntry> classes;
  NSBundle *bundle = BuiltBundle();
  const int count = objc_getClassList(nullptr, 0);
  const auto all =
      Owned(static_cast<Class *>(calloc(static_cast<std::size_t>(count), sizeof(Class))));
  objc_getClassList(all.get(), count);
  for (int i = 0; i < count; ++i) {
    Class cls = all.get()[i];
    if ([NSBundle bundleForClass:cls] == bundle) classes[class_getName(cls)] = Entry(cls);
  }
  EXPECT_EQ(WithoutProperties(ExpectedClassTable()), ClassTable(classes));
}
