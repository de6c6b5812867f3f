#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "resources/Parser.h"

// The first byte says how many of the following bytes are delimiters; the
// rest is the text. Every query and edit then runs over the tokens, with
// indices just outside them as well.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static bool quiet = freopen("/dev/null", "w", stdout) != nullptr;
    (void)quiet;
    if (size == 0) return 0;
    size_t delimiterCount = data[0] % 8;
    if (delimiterCount > size - 1) delimiterCount = size - 1;
    const char* bytes = reinterpret_cast<const char*>(data) + 1;
    std::string delimiters(bytes, delimiterCount);
    std::string text(bytes + delimiterCount, size - 1 - delimiterCount);

    Parser parser(text, delimiters);
    for (int32_t i = -1; i <= parser.count(); ++i) {
        parser.show(i);
        parser.val(i);
        parser.val<float>(i);
        parser.isVal(i);
    }
    if (parser.count() > 0) parser.find(parser.show(parser.count() - 1));
    int32_t n = parser.count();
    parser.add(n / 2 - 1, "w");
    parser.add(n, "tail");
    parser.swap(n / 3, "s");
    parser.del(parser.count() - 1);
    parser.del(0);
    parser.setText(text.c_str());
    return 0;
}
