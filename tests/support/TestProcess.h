// What test programs do before their tests, each platform in its way.

#ifndef TESTS_SUPPORT_TESTPROCESS_H
#define TESTS_SUPPORT_TESTPROCESS_H

/// Makes all texts English, also those of the platform, of libcups and of programs that tests run,
/// whatever the language here is. Called first in main with its arguments.
void SpeakEnglish(char **argv);

/// Makes the application object, which views need. Ends the program where that is not possible.
void StartApplication();

#endif
