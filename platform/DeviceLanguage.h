#pragma once

namespace tamsel {

// Makes ICU's texts those of the language that LC_ALL, LC_MESSAGES or LANG name, the first that says something;
// American English where ICU has no texts in it. At the start of a program, before anything reads the environment.
void adoptDeviceLanguage();

} // namespace tamsel
