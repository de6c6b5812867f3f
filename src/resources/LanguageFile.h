#pragma once
#include <string>

#include "resources/IniFile.h"

// The words of the screens lie in a plain file beside the game, never in the
// archives, so that a translation needs no repacking. Each screen reads its
// own section when it starts.
namespace LanguageFile {

extern const char* const PATH;

// A missing file or section leaves every word empty; screens show no label then.
bool load(IniFile& words, const std::string& section);

}  // namespace LanguageFile
