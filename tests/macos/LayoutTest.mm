// The layout against the classes that the executable has: what the loader would connect.

#include <map>
#include <set>
#include <sstream>
#include <string>

#include "tests/macos/BundleUnderTest.h"
#include "tests/macos/ClassMetadata.h"
#include "tests/support/ClassTable.h"
#import "tests/support/ObjCTest.h"

namespace {

NSArray *Found(NSString *xpath) {
  const std::string path = BundleUnderTest() / "Contents/Resources/BackgroundNumbering.xib";
  NSData *data = [NSData dataWithContentsOfFile:[NSString stringWithUTF8String:path.c_str()]];
  NSXMLDocument *document = [[[NSXMLDocument alloc] initWithData:data options:0
                                                           error:nullptr] autorelease];
  return [document nodesForXPath:xpath error:nullptr];
}

std::string Attribute(NSXMLElement *element, NSString *name) {
  NSString *value = [[element attributeForName:name] stringValue];
  return value == nil ? "" : [value UTF8String];
}

// The lines of each class.
std::map<std::string, std::set<std::string>> Classes() {
  std::istringstream table(
      ClassMetadata(LinesOf("llvm-objdump", {"--macho", "--objc-meta-data", "--arch=arm64"})));
  std::map<std::string, std::set<std::string>> classes;
  std::string name;
  for (std::string line; std::getline(table, line);) {
    if (line.starts_with("  ")) {
      classes[name].insert(line.substr(2));
    } else {
      name = line.substr(0, line.find(' '));
      if (!name.empty()) classes[name];
    }
  }
  return classes;
}

std::string ClassOf(const std::string &identifier) {
  NSString *xpath = [NSString stringWithFormat:@"//*[@id='%s']", identifier.c_str()];
  return Attribute([Found(xpath) lastObject], @"customClass");
}

std::string Setter(std::string property) {
  property[0] = static_cast<char>(toupper(property[0]));
  return "- set" + property + ":";
}

}  // namespace

OBJC_TEST(Layout, EveryClassThatItNamesIsInTheExecutable) {
  const auto classes = Classes();
  std::set<std::string> named;
  for (NSXMLElement *object in Found(@"//*[@customClass]")) {
    const std::string name = Attribute(object, @"customClass");
    if (name.starts_with("NS") || name == "FirstResponder") continue;
    named.insert(name);
    EXPECT_TRUE(classes.contains(name)) << name;
  }
  EXPECT_EQ(8u, named.size());
}

OBJC_TEST(Layout, EveryOutletOfTheOwnerHasASetterAndIsOfThePropertysClass) {
  const auto classes = Classes();
  const auto &owner = classes.at("velmoraBNViewControllerRV2");
  NSArray *outlets = Found(@"//customObject[@id='-2']/connections/outlet");
  EXPECT_EQ(13u, [outlets count]);
  for (NSXMLElement *outlet in outlets) {
    const std::string property = Attribute(outlet, @"property");
    const std::string cls = ClassOf(Attribute(outlet, @"destination"));
    EXPECT_TRUE(owner.contains(Setter(property))) << property;
    EXPECT_TRUE(owner.contains("field _" + property + ' ' + (cls.empty() ? "NSView" : cls)))
        << property << " is connected to " << cls;
  }
}

OBJC_TEST(Layout, EveryActionThatTheOwnerIsSentIsAMethodOfIt) {
  const auto classes = Classes();
  NSArray *actions = Found(@"//action[@target='-2']");
  EXPECT_EQ(2u, [actions count]);
  for (NSXMLElement *action in actions) {
    const std::string selector = Attribute(action, @"selector");
    EXPECT_TRUE(classes.at("velmoraBNViewControllerRV2").contains("- " + selector)) << selector;
  }
}

OBJC_TEST(Layout, EveryConnectionLeadsToAnObjectOfTheFile) {
  for (NSXMLElement *connection in Found(@"//connections/*")) {
    for (NSString *end in @[ @"destination", @"target" ]) {
      const std::string identifier = Attribute(connection, end);
      if (identifier.empty()) continue;
      NSString *xpath = [NSString stringWithFormat:@"//*[@id='%s']", identifier.c_str()];
      EXPECT_EQ(1u, [Found(xpath) count]) << identifier;
    }
  }
}

// The compiler of layouts refuses a file in which two things have one identifier.
OBJC_TEST(Layout, NoIdentifierIsUsedTwice) {
  std::set<std::string> identifiers;
  for (NSXMLElement *object in Found(@"//*[@id]")) {
    EXPECT_TRUE(identifiers.insert(Attribute(object, @"id")).second) << Attribute(object, @"id");
  }
}
