#import "settinginfo/PPDAttribute.h"

#import "tests/support/ObjCTest.h"
#include "tests/support/TestPPD.h"

OBJC_TEST(PPDAttributeValue, AnswersTheValueNotTheTranslation) {
  TestPPD ppd("*Feature Option/Translated: \"value\"\n");
  EXPECT_EQUAL_OBJECTS(@"value", PPDAttributeValue(ppd.get(), @"Feature"));
}

OBJC_TEST(PPDAttributeValue, AnswersTheFirstOfSeveralOptionParts) {
  TestPPD ppd("*Feature Second: \"one\"\n*Feature First: \"two\"\n");
  EXPECT_EQUAL_OBJECTS(@"one", PPDAttributeValue(ppd.get(), @"Feature"));
}

OBJC_TEST(PPDAttributeValue, AnswersNilWithoutFileOrAttribute) {
  TestPPD ppd("");
  EXPECT_EQUAL_OBJECTS(nil, PPDAttributeValue(ppd.get(), @"Feature"));
  EXPECT_EQUAL_OBJECTS(nil, PPDAttributeValue(nullptr, @"Feature"));
}

OBJC_TEST(PPDAttributeValue, AnswersNilForBytesThatAreNotUTF8) {
  TestPPD ppd("*Feature: \"\xff\xfe\"\n");
  EXPECT_EQUAL_OBJECTS(nil, PPDAttributeValue(ppd.get(), @"Feature"));
}

OBJC_TEST(PPDAttributeValue, AnswersNilForAnAttributeWithoutValueText) {
  TestPPD ppd("*Feature: \"value\"\n");
  ppd_attr_t *attribute = ppdFindAttr(ppd.get(), "Feature", nullptr);
  char *value = std::exchange(attribute->value, nullptr);
  EXPECT_EQUAL_OBJECTS(nil, PPDAttributeValue(ppd.get(), @"Feature"));
  attribute->value = value;
}
