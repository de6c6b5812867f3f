// The first byte says how many of the following bytes are delimiters; the
// rest is the text. Every query and edit then runs over the tokens, with
// indices just outside them as well.
#include "FuzzSupport.h"
#include "resources/Parser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    quiet();
    if (size == 0) return 0;
    size_t delimiterCount = std::min<size_t>(data[0] % 8, size - 1);
    const char* bytes = reinterpret_cast<const char*>(data) + 1;
    std::string text(bytes + delimiterCount, size - 1 - delimiterCount);
    Parser parser(text, std::string(bytes, delimiterCount));
    for (int32_t i = -1; i <= parser.count(); ++i) {
        parser.show(i);
        parser.val(i);
        parser.val<float>(i);
        parser.isVal(i);
    }
    const int32_t n = parser.count();
    if (n > 0) parser.find(parser.show(n - 1));
    parser.add(n / 2 - 1, "w");
    parser.add(n, "tail");
    parser.swap(n / 3, "s");
    parser.del(parser.count() - 1);
    parser.del(0);
    parser.setText(text.c_str());
    return 0;
}
