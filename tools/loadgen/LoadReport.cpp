#include "LoadReport.h"

#include <algorithm>
#include <cmath>

namespace {

bool within(double value, double expected) { return std::fabs(value - expected) <= LoadReport::TOLERANCE * expected; }

}  // namespace

bool LoadReport::print(FILE* out) const {
    fprintf(out, "%6s %6s %4s %7s %8s %12s %9s %10s %7s\n", "client", "joined", "id", "players", "rate_hz",
            "bytes_per_qs", "expected", "reconnects", "ping_ms");
    int joined = 0, reconnects = 0, worstPing = 0;
    double lowRate = 1e9, highRate = 0.0, lowBytes = 1e18, highBytes = 0.0;
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
    }
    if (rows.empty()) return false;
    fprintf(out, "all: joined %d/%zu, rate %.3f..%.3f Hz per player (expected %.1f), bytes per quarter second "
                 "%.3f..%.3f of 64 x N + 28, reconnects %d, ping up to %d ms\n",
            joined, rows.size(), lowRate, highRate, EXPECTED_HZ, lowBytes, highBytes, reconnects, worstPing);
    fprintf(out, "loadgen frame: median %.3f ms, p99 %.3f ms\n", frameMedian * 1e3, frameP99 * 1e3);

    bool passed = true;
    for (size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        if (!row.joined) {
            fprintf(out, "FAIL: client %zu did not join\n", i);
            passed = false;
            continue;
        }
        if (!within(row.tally.fighterHz, EXPECTED_HZ)) {
            fprintf(out, "FAIL: client %zu gets %.3f snapshots per player per second\n", i, row.tally.fighterHz);
            passed = false;
        }
        if (!within(row.tally.bytesPerQuarter(), row.tally.expectedBytesPerQuarter())) {
            fprintf(out, "FAIL: client %zu gets %.1f snapshot bytes per quarter second, not %.0f\n", i,
                    row.tally.bytesPerQuarter(), row.tally.expectedBytesPerQuarter());
            passed = false;
        }
    }
    fprintf(out, passed ? "ok\n" : "failed\n");
    return passed;
}
