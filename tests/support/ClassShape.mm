#import "tests/support/ClassShape.h"

#import <objc/runtime.h>

#include <cstdlib>

@interface ReleaseWitness : NSObject {
 @public
  const char *field;
  std::vector<std::string> *released;
}
@end

@implementation ReleaseWitness
- (void)dealloc {
  released->push_back(field);
  [super dealloc];
}
@end

namespace {

template <typename Visitor>
void VisitFields(Class cls, Visitor visit) {
  unsigned count = 0;
  Ivar *fields = class_copyIvarList(cls, &count);
  for (unsigned i = 0; i < count; ++i) visit(fields[i]);
  free(fields);
}

std::string TypeName(Ivar field) {
  const std::string encoding = ivar_getTypeEncoding(field);
  if (!encoding.starts_with("@\"")) return encoding;
  return encoding.substr(2, encoding.size() - 3);
}

}  // namespace

std::vector<std::string> FieldsOf(Class cls) {
  std::vector<std::string> fields;
  VisitFields(cls, [&](Ivar field) {
    fields.push_back(std::string(ivar_getName(field)) + ' ' + TypeName(field));
  });
  return fields;
}

std::vector<std::string> ProtocolsOf(Class cls) {
  unsigned count = 0;
  Protocol **protocols = class_copyProtocolList(cls, &count);
  std::vector<std::string> names;
  for (unsigned i = 0; i < count; ++i) names.push_back(protocol_getName(protocols[i]));
  free(protocols);
  return names;
}

std::vector<std::string> FieldsReleasedAtTeardown(Class cls) {
  std::vector<std::string> released;
  id object = [cls alloc];
  for (Class c = cls; c != [NSObject class]; c = [c superclass]) {
    VisitFields(c, [&](Ivar field) {
      if (ivar_getTypeEncoding(field)[0] != '@') return;
      ReleaseWitness *witness = [[ReleaseWitness alloc] init];
      witness->field = ivar_getName(field);
      witness->released = &released;
      object_setIvar(object, field, witness);
    });
  }
  [object release];
  return released;
}

bool HasSetterOf(Class cls, NSArray *properties) {
  for (NSString *name in properties) {
    NSString *capitalized = [[[name substringToIndex:1] uppercaseString]
        stringByAppendingString:[name substringFromIndex:1]];
    NSString *setter = [NSString stringWithFormat:@"set%@:", capitalized];
    if ([cls instancesRespondToSelector:NSSelectorFromString(setter)]) return true;
  }
  return false;
}
