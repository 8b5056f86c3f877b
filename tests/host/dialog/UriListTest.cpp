#include "host/dialog/UriList.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

ListedFiles Listed(const std::string &list) { return FilesOfUriList(list, "desk"); }

}  // namespace

TEST(UriList, HasFilesInItsOrder) {
  EXPECT_THAT(Listed("file:///b.pdf\r\nfile:///a.pdf\r\n").files, ElementsAre("/b.pdf", "/a.pdf"));
  EXPECT_THAT(Listed("file:///a.pdf\n\nfile:///b.pdf").files, ElementsAre("/a.pdf", "/b.pdf"));
  EXPECT_THAT(Listed("").files, IsEmpty());
}

TEST(UriList, EscapesAreBytesOfThePath) {
  EXPECT_THAT(Listed("file:///tmp/gr%C3%B6%c3%9fe%20100%25.pdf").files,
              ElementsAre("/tmp/größe 100%.pdf"));
  EXPECT_THAT(Listed("file:///tmp/a%3Fb%23c.pdf").files, ElementsAre("/tmp/a?b#c.pdf"));
}

TEST(UriList, WhatIsEscapedWronglyIsNoFile) {
  for (const std::string uri :
       {"file:///a%2", "file:///a%", "file:///a%zz", "file:///a%-1", "file:///a%00.pdf"}) {
    EXPECT_THAT(Listed(uri).files, IsEmpty());
    EXPECT_THAT(Listed(uri).others, ElementsAre(uri));
  }
}

TEST(UriList, FilesOfThisComputerMayNameIt) {
  EXPECT_THAT(Listed("file:/a\nfile://localhost/b\nfile://DESK/c\nFILE:///d").files,
              ElementsAre("/a", "/b", "/c", "/d"));
}

TEST(UriList, WhatIsElsewhereIsNoFile) {
  const ListedFiles listed =
      Listed("file://other/a\nhttp://desk/b\nfile:///c\nfile:d\nmailto:e@desk");
  EXPECT_THAT(listed.files, ElementsAre("/c"));
  EXPECT_THAT(listed.others,
              ElementsAre("file://other/a", "http://desk/b", "file:d", "mailto:e@desk"));
}

TEST(UriList, CommentsAreNone) {
  const ListedFiles listed = Listed("# two files\r\nfile:///a\r\n#file:///b\r\n");
  EXPECT_THAT(listed.files, ElementsAre("/a"));
  EXPECT_THAT(listed.others, IsEmpty());
}
