// What test programs do before their tests, each platform in its way.

#ifndef TESTS_SUPPORT_TESTPROCESS_H
#define TESTS_SUPPORT_TESTPROCESS_H

/// Makes all texts English, also those of the platform, of libcups and of programs that tests run,
/// whatever the language here is. Called first in main with its arguments.
void SpeakEnglish(char **argv);

/// Makes the application object, which windows and much of views need; where the platform takes a
/// display for that, only if there is one: tests without views begin sooner.
void StartApplication();

#endif
