// The phone's language and region format: what its global preferences say, and what Foundation answers
// for the current locale and the preferred languages.
#pragma once

#include <string>

namespace simulator {

// "de", "pt-BR", "zh-Hans": a language, maybe with a script or a region.
bool isLanguage(const std::string& code);

// Once, before SpringBoard starts.
void speak(const std::string& code);

}  // namespace simulator
