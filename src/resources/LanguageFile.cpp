#include "resources/LanguageFile.h"

namespace LanguageFile {

const char* const PATH = "lang.ini";

bool load(IniFile& words, const std::string& section) {
    return words.load(PATH, section);
}

}  // namespace LanguageFile
