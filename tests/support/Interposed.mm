#import "tests/support/Interposed.h"

#include <cups/ppd.h>
#include <dlfcn.h>
#include <stdarg.h>

#import <Foundation/Foundation.h>
#import <PrintCore/PrintCore.h>

namespace {

// Each thread has its own: libcups calls from those that fetch PPD files.
thread_local std::vector<std::string> calls;
int read_status = 0;
int write_status = 0;
int failing_number = 0;
int failing_status = 0;
int counted = 0;
std::string failed_call;

// Half a surrogate pair alone has no UTF-8.
std::string Described(id object) {
  if (object == nil) return "nil";
  NSString *text = [object description];
  const bool has_utf8 = [text canBeConvertedToEncoding:NSUTF8StringEncoding];
  return has_utf8 ? [text UTF8String] : "no UTF-8";
}

void Record(const char *what, id object) {
  calls.push_back(std::string(what) + ' ' + Described(object));
}

// The status with which this call is to fail now; 0: it works.
OSStatus CountedStatus(const std::string &call) {
  if (++counted != failing_number) return 0;
  failed_call = call;
  return failing_status;
}

template <typename Function>
Function *Next(const char *name) {
  return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

}  // namespace

namespace interposed {

const std::vector<std::string> &Calls() { return calls; }

std::vector<std::string> Calls(const std::string &prefix) {
  std::vector<std::string> matching;
  for (const std::string &call : calls) {
    if (call.starts_with(prefix)) matching.push_back(call);
  }
  return matching;
}

void Clear() { calls.clear(); }
void FailReads(int status) { read_status = status; }
void FailWrites(int status) { write_status = status; }

void FailCall(int number, int status) {
  failing_number = number;
  failing_status = status;
  counted = 0;
  failed_call.clear();
}

int CallsCounted() { return counted; }
std::string FailedCall() { return failed_call; }

}  // namespace interposed

extern "C" {

// A read that fails leaves the value in its slot all the same: nobody may look there then.
OSStatus PMPrintSettingsGetValue(PMPrintSettings settings, CFStringRef key, CFTypeRef *value) {
  Record("get", (NSString *)key);
  const OSStatus failure = CountedStatus(calls.back());
  const OSStatus status =
      Next<decltype(PMPrintSettingsGetValue)>("PMPrintSettingsGetValue")(settings, key, value);
  if (failure != 0) return failure;
  return read_status != 0 ? read_status : status;
}

OSStatus PMPrintSettingsSetValue(PMPrintSettings settings, CFStringRef key, CFTypeRef value,
                                 Boolean locked) {
  Record("set",
         [NSString stringWithFormat:@"%@=%@%@", (id)key, value == nullptr ? @"nil" : (id)value,
                                    locked ? @" locked" : @""]);
  if (const OSStatus status = CountedStatus(calls.back())) return status;
  if (write_status != 0) return write_status;
  return Next<decltype(PMPrintSettingsSetValue)>("PMPrintSettingsSetValue")(settings, key, value,
                                                                            locked);
}

OSStatus PMCreatePrintSettings(PMPrintSettings *settings) {
  if (const OSStatus status = CountedStatus("create")) return status;
  return Next<decltype(PMCreatePrintSettings)>("PMCreatePrintSettings")(settings);
}

OSStatus PMPrintSettingsCopyAsDictionary(PMPrintSettings settings, CFDictionaryRef *values) {
  if (const OSStatus status = CountedStatus("copy")) return status;
  return Next<decltype(PMPrintSettingsCopyAsDictionary)>("PMPrintSettingsCopyAsDictionary")(
      settings, values);
}

ppd_attr_t *ppdFindAttr(ppd_file_t *ppd, const char *name, const char *spec) {
  calls.push_back(std::string("ppd ") + (name == nullptr ? "NULL" : name) +
                  (spec == nullptr ? "" : std::string(" ") + spec));
  return Next<decltype(ppdFindAttr)>("ppdFindAttr")(ppd, name, spec);
}

void NSLog(NSString *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  NSString *line = [[[NSString alloc] initWithFormat:format arguments:arguments] autorelease];
  va_end(arguments);
  Record("log", line);
}

}  // extern "C"
