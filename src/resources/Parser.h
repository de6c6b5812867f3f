#pragma once
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Cuts a text into tokens: maximal runs of characters that are neither one of
// the delimiters nor a zero byte. Token numbers are recomputed on every edit.
// An index outside the tokens prints one line and gives a harmless result.
class Parser {
public:
    explicit Parser(const std::string& text = std::string(), const std::string& delimiters = std::string());

    int32_t count() const;
    std::string show(int32_t i) const;
    std::string operator[](int32_t i) const { return show(i); }
    // val(i) reads the token as atoi does, val<float>(i) as atof does.
    template <typename T = int32_t>
    T val(int32_t i) const;
    // True only for a whole number in its plain form: "12", "-3", not "+3" or "012".
    bool isVal(int32_t i) const;
    int32_t find(const std::string& word) const;

    const std::string& text() const { return content; }
    Parser& setText(const std::string& text);
    // Takes the buffer up to its first zero byte; null is the empty text.
    Parser& setText(const char* buffer);
    void setDelimiters(const std::string& delimiters);

    // Puts the word in front of token i+1, so add(-1, word) makes a new first
    // token; behind the last token it is appended with a delimiter, past the
    // end without one.
    void add(int32_t i, const std::string& word);
    // Removes token i and the delimiters behind it; the last token leaves the
    // delimiters in front of it.
    void del(int32_t i);
    void swap(int32_t i, const std::string& word);

private:
    bool has(int32_t i) const;
    std::string token(int32_t i) const;
    void tokenize();

    std::vector<std::pair<int32_t, int32_t>> spans;  // start and length of each token
    std::string content;
    std::string delimiters;
};

template <>
int32_t Parser::val<int32_t>(int32_t i) const;
template <>
float Parser::val<float>(int32_t i) const;
