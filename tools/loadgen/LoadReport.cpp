#include "LoadReport.h"

#include <algorithm>
#include <cmath>

namespace {

// A value exactly at the tolerance passes, whatever the rounding of its difference.
bool within(double value, double expected) {
    return std::fabs(value - expected) <= LoadReport::TOLERANCE * expected * (1 + 1e-9);
}

}  // namespace

bool LoadReport::print(FILE* out) const {
    fprintf(out, "%6s %6s %4s %7s %8s %12s %9s %10s %7s\n", "client", "joined", "id", "players", "rate_hz",
            "bytes_per_qs", "expected", "reconnects", "ping_ms");
    int joined = 0, reconnects = 0, worstPing = 0;
    double lowRate = 1e9, highRate = 0.0, lowBytes = 1e18, highBytes = 0.0, allBytes = 0.0;
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        const LoadClient::Tally& tally = row.tally;
        fprintf(out, "%6zu %6s %4d %7d %8.3f %12.1f %9.0f %10d %7d\n", i, row.joined ? "yes" : "no", row.id,
                tally.players, tally.fighterHz, tally.bytesPerQuarter(), tally.expectedBytesPerQuarter(),
                row.reconnects, row.ping);
        joined += row.joined ? 1 : 0;
        reconnects += row.reconnects;
        worstPing = std::max(worstPing, row.ping);
        lowRate = std::min(lowRate, tally.fighterHz);
        highRate = std::max(highRate, tally.fighterHz);
        lowBytes = std::min(lowBytes, tally.bytesPerQuarter() / tally.expectedBytesPerQuarter());
        highBytes = std::max(highBytes, tally.bytesPerQuarter() / tally.expectedBytesPerQuarter());
        allBytes += tally.allBytesPerSecond;
    }
    fprintf(out,
            "all: joined %d/%zu, rate %.3f..%.3f Hz per player (expected %.1f), bytes per quarter second "
            "%.3f..%.3f of 64 x N + 28, reconnects %d, ping up to %d ms\n",
            joined, rows.size(), lowRate, highRate, EXPECTED_HZ, lowBytes, highBytes, reconnects, worstPing);
    fprintf(out, "received per client, pings aside: %.0f bytes per second on average\n",
            rows.empty() ? 0.0 : allBytes / double(rows.size()));
    fprintf(out, "loadgen frame: median %.3f ms, p99 %.3f ms\n", frameMedian * 1e3, frameP99 * 1e3);
    std::vector<std::string> failed = failures();
    for (const std::string& failure : failed) fprintf(out, "FAIL: %s\n", failure.c_str());
    fprintf(out, failed.empty() ? "ok\n" : "failed\n");
    return failed.empty();
}

std::vector<std::string> LoadReport::failures() const {
    std::vector<std::string> failed;
    if (rows.empty()) failed.push_back("no clients");
    char line[160];
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (!row.joined) {
            snprintf(line, sizeof line, "client %zu did not join", i);
            failed.push_back(line);
            continue;
        }
        if (!within(row.tally.fighterHz, EXPECTED_HZ)) {
            snprintf(line, sizeof line, "client %zu gets %.3f snapshots per player per second", i,
                     row.tally.fighterHz);
            failed.push_back(line);
        }
        if (!within(row.tally.bytesPerQuarter(), row.tally.expectedBytesPerQuarter())) {
            snprintf(line, sizeof line, "client %zu gets %.1f snapshot bytes per quarter second, not %.0f", i,
                     row.tally.bytesPerQuarter(), row.tally.expectedBytesPerQuarter());
            failed.push_back(line);
        }
    }
    return failed;
}
