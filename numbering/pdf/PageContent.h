// The instructions of a page, and putting others around them.

#ifndef NUMBERING_PDF_PAGECONTENT_H
#define NUMBERING_PDF_PAGECONTENT_H

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <string>
#include <vector>

namespace numbering {

class PageContent {
 public:
  PageContent(QPDF &pdf, QPDFPageObjectHelper &page);

  void PutBefore(const std::string &instructions);
  // Whatever the page leaves behind, these begin as its own do. False, and nothing is done: that
  // cannot be found out.
  bool PutAfter(const std::string &instructions, const QPDFObjectHandle &save);

 private:
  QPDFObjectHandle Stream(const std::string &instructions);
  void Replace(const std::vector<QPDFObjectHandle> &streams);

  QPDF &pdf_;
  QPDFObjectHandle page_;
  std::vector<QPDFObjectHandle> streams_;
};

}  // namespace numbering

#endif
