#include "resources/Parser.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

Parser::Parser(const std::string& text, const std::string& delimiterSet)
    : content(text), delimiters(delimiterSet) {
    tokenize();
}

void Parser::tokenize() {
    spans.clear();
    // Without a delimiter no token could ever end.
    if (delimiters.empty()) return;
    bool isDelimiter[256] = {};
    for (unsigned char c : delimiters) isDelimiter[c] = true;
    isDelimiter[0] = true;
    // Texts beyond 2 GiB are not cut further than the token numbers reach.
    const size_t end = std::min(content.size(), size_t(INT32_MAX));
    int32_t start = 0, length = 0;
    for (size_t position = 0; position < end; ++position) {
        if (isDelimiter[static_cast<unsigned char>(content[position])]) {
            if (length > 0) spans.emplace_back(start, length);
            length = 0;
        } else {
            if (length == 0) start = int32_t(position);
            ++length;
        }
    }
    if (length > 0) spans.emplace_back(start, length);
}

int32_t Parser::count() const {
    return int32_t(spans.size());
}

bool Parser::has(int32_t i) const {
    return i >= 0 && i < count();
}

std::string Parser::token(int32_t i) const {
    return content.substr(size_t(spans[i].first), size_t(spans[i].second));
}

std::string Parser::show(int32_t i) const {
    if (!has(i)) {
        printf("FAIL: Parser.show: Element %d nie istnieje\n", i);
        return std::string();
    }
    return token(i);
}

template <>
int32_t Parser::val<int32_t>(int32_t i) const {
    if (!has(i)) {
        printf("FAIL: Parser.val: Element %d nie istnieje\n", i);
        return 0;
    }
    return atoi(token(i).c_str());
}

template <>
float Parser::val<float>(int32_t i) const {
    if (!has(i)) {
        printf("FAIL: Parser.val: Element %d nie istnieje\n", i);
        return 0.0f;
    }
    return float(atof(token(i).c_str()));
}

bool Parser::isVal(int32_t i) const {
    if (!has(i)) {
        printf("FAIL: Parser.isVal: Element %d nie istnieje\n", i);
        return false;
    }
    std::string word = token(i);
    return std::to_string(atoi(word.c_str())) == word;
}

int32_t Parser::find(const std::string& word) const {
    for (int32_t i = 0; i < count(); ++i)
        if (content.compare(size_t(spans[i].first), size_t(spans[i].second), word) == 0) return i;
    return -1;
}

Parser& Parser::setText(const std::string& text) {
    content = text;
    tokenize();
    return *this;
}

Parser& Parser::setText(const char* buffer) {
    return setText(std::string(buffer ? buffer : ""));
}

void Parser::setDelimiters(const std::string& delimiterSet) {
    delimiters = delimiterSet;
    tokenize();
}

void Parser::add(int32_t i, const std::string& word) {
    if (i < -1) {
        printf("FAIL: Parser.add: Element %d nie istnieje\n", i);
        return;
    }
    std::string separated = word;
    if (!delimiters.empty()) separated += delimiters[0];
    if (i < count() - 1)
        content.insert(size_t(spans[i + 1].first), separated);
    else if (i == count() - 1)
        content += separated;
    else
        content += word;
    tokenize();
}

void Parser::del(int32_t i) {
    if (!has(i)) {
        printf("FAIL: Parser.del: Element %d nie istnieje\n", i);
        return;
    }
    int32_t start = spans[i].first;
    int32_t end = i + 1 < count() ? spans[i + 1].first : start + spans[i].second;
    content.erase(size_t(start), size_t(end - start));
    tokenize();
}

void Parser::swap(int32_t i, const std::string& word) {
    if (!has(i)) {
        printf("FAIL: Parser.swap: Element %d nie istnieje\n", i);
        return;
    }
    del(i);
    add(i - 1, word);
}
