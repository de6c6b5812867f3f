#pragma once
#include <cstdio>
#include <string>

#include "gameplay/DefaultContent.h"

// Two bots fighting in a server-side world, stepped at a fixed rate.
namespace BotMatch {

struct Setup {
    std::string arena = DefaultContent::ARENA;
    std::string fighters[2];
    int rounds = 50;
    float step = 1.0f / 60.0f;
    // A round that has not ended after this many seconds is given up as drawn.
    float roundLimit = 600.0f;
};

struct Result {
    int rounds = 0;
    int ended = 0;       // rounds that ended within the limit
    int unfinished = 0;  // rounds given up at the limit
    int wins[2] = {0, 0};
    double roundSeconds = 0.0;     // sum over the ended rounds
    double shortest = 0.0;
    double longest = 0.0;
    long actions[2][5] = {};       // decisions per bot and action
};

bool run(const Setup& setup, Result& result);
void print(const Setup& setup, const Result& result, FILE* out);

}  // namespace BotMatch
