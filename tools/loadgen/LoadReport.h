#pragma once
#include <cstdio>
#include <string>
#include <vector>

#include "LoadClient.h"

// The outcome of a load, per client and in sum, and whether it passes: every
// client joined, and every rate within TOLERANCE of what the protocol sends.
struct LoadReport {
    // Snapshots of each player per second, as the server sends them.
    static constexpr double EXPECTED_HZ = 4.0;
    static constexpr double TOLERANCE = 0.05;

    struct Row {
        bool joined;
        int id;
        int reconnects;
        int ping;
        LoadClient::Tally tally;
    };

    // Prints a line per client, the sum, and every failure; true if none.
    bool print(FILE* out) const;
    // What keeps the load from passing, a line each.
    std::vector<std::string> failures() const;

    std::vector<Row> rows;
    // Seconds the load generator's own frames took while it counted.
    double frameMedian = 0.0;
    double frameP99 = 0.0;
};
