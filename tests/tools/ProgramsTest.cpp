// The built game and tools, run as a player or a content author runs them.
#include <gtest/gtest.h>

#include <SDL.h>

#include <filesystem>
#include <regex>
#include <string>

#include "TestSupport.h"

using std::filesystem::exists;
using TestSupport::readFile;
using TestSupport::run;
using TestSupport::writeFile;

namespace {

const std::string GAME = KORVANE_BINARY_DIR "/game";
const std::string TOOLS = KORVANE_BINARY_DIR "/tools/";

// Pixels of a 24-bit shot (blue, green, red) in x0..x1, y0..y1 within `tolerance` of r, g, b.
int countNear(SDL_Surface* s, int x0, int y0, int x1, int y1, int r, int g, int b, int tolerance) {
    int count = 0;
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x) {
            const Uint8* p = static_cast<const Uint8*>(s->pixels) + y * s->pitch + x * 3;
            count += abs(p[2] - r) <= tolerance && abs(p[1] - g) <= tolerance && abs(p[0] - b) <= tolerance;
        }
    return count;
}

}  // namespace

// Twice, where there is no data.ini: the first line of a run carries the date, the others the time.
TEST(Game, WithoutItsDataExitsWith185AndAppendsItsStartLinesToTheLog) {
    TestSupport::ScopedTempDir dir;
    EXPECT_EQ(run(dir.path(), KORVANE_BINARY_DIR "/korvane"), 185);
    EXPECT_EQ(run(dir.path(), KORVANE_BINARY_DIR "/korvane"), 185);
    const std::string time = R"(\d\d:\d\d:\d\d\] )";
    const std::string start = R"(\[\d{4}-\d\d-\d\d )" + time + "INFO: Start\n\\[" + time +
                              R"(INFO: Build [A-Z][a-z]{2} [ \d]\d \d{4} \d\d:\d\d:\d\d\n\[)" + time +
                              "DEBUG INFO: Seed: 0x[0-9A-F]{8}\n\\[" + time +
                              "FAIL: Resource.open: Nie udalo sie wczytac pliku listy \"data.ini\"\n";
    EXPECT_TRUE(std::regex_match(readFile("log.txt"), std::regex(start + start))) << readFile("log.txt");
}

// The game reads its words from a plain file beside it, never from the archive.
TEST(StagedGame, HoldsTheWordsAsAPlainFile) {
    const std::string words = readFile(KORVANE_SOURCE_DIR "/data/lang.ini");
    ASSERT_FALSE(words.empty());
    EXPECT_EQ(readFile(GAME + "/lang.ini"), words);
}

TEST(Cres, PacksAFolderInSortedOrderThatListsVerifiesAndExtractsByteForByte) {
    TestSupport::ScopedTempDir dir;
    std::string printed;
    auto cres = [&](const std::string& arguments) { return run(dir.path(), TOOLS + "cres " + arguments, &printed); };
    std::filesystem::create_directories("src/character");
    writeFile("src/noise.bin", "\x01\x7f\x33\xfe\x80");
    writeFile("src/empty", "");
    writeFile("src/character/init.lua", std::string(3000, 'a') + "-- repetitive, so it packs");
    ASSERT_EQ(cres("pack src data.cres"), 0);
    ASSERT_EQ(cres("list data.cres"), 0);
    EXPECT_TRUE(std::regex_match(printed, std::regex("character/init.lua\t\\d+\t3026\tcompressed\n"
                                                     "empty\t0\t0\tplain\nnoise.bin\t5\t5\tplain\n")))
        << printed;
    ASSERT_EQ(cres("verify data.cres"), 0);
    ASSERT_EQ(cres("extract data.cres out"), 0);
    for (const char* name : {"character/init.lua", "noise.bin", "empty"})
        EXPECT_EQ(readFile(std::string("out/") + name), readFile(std::string("src/") + name)) << name;
    EXPECT_TRUE(exists("out/empty"));

    // Refused: a damaged entry, a name outside the folder, a missing archive, bad usage.
    std::string bytes = readFile("data.cres");
    writeFile("escape.cres", std::string(bytes).replace(bytes.find("empty"), 5, "../up"));
    bytes[bytes.size() - 10] ^= 0x55;  // in the script's stream, in front of the five bytes of noise.bin
    writeFile("damaged.cres", bytes);
    EXPECT_EQ(cres("verify damaged.cres"), 1);
    EXPECT_EQ(cres("extract escape.cres out2"), 1);
    EXPECT_TRUE(exists("out2/noise.bin") && !exists("up"));
    EXPECT_EQ(cres("list absent.cres"), 1);
    EXPECT_EQ(cres("pack onlyone"), 2);
    EXPECT_NE(printed.find("usage: cres"), std::string::npos);
    std::filesystem::create_directory("nothing");
    ASSERT_EQ(cres("pack nothing empty.cres"), 0);
    EXPECT_EQ(cres("verify empty.cres"), 0);
}

TEST(Botsim, AccountsForEveryRoundOfBotsThatFightAndSpeakAndRefusesWhatItCannotRun) {
    const std::string botsim = "../tools/botsim", fighter = " character/default/init.lua";
    std::string report;
    ASSERT_EQ(run(GAME, botsim + " --rounds 6 --seed 7" + fighter + fighter, &report), 0) << report;
    EXPECT_EQ(report.rfind("arena ", 0), 0u) << report;  // the report alone: the world's lines go to the log
    std::smatch m;
    ASSERT_TRUE(std::regex_search(report, m, std::regex(R"(, 6 rounds\n.*: (\d+) wins.*\n.*: (\d+) wins.*\n)"
                                                         R"(rounds with no survivor: (\d+), given up after \d+ s: (\d+)\n)"
                                                         R"(round length: mean (\S+) s, shortest (\S+) s, longest (\S+) s)")))
        << report;
    const int wins = std::stoi(m[1]) + std::stoi(m[2]);
    EXPECT_TRUE(wins > 0 && wins + std::stoi(m[3]) + std::stoi(m[4]) == 6) << report;
    EXPECT_TRUE(0 < std::stod(m[6]) && std::stod(m[6]) <= std::stod(m[5]) && std::stod(m[5]) <= std::stod(m[7]))
        << report;
    // Bots that never decided anything would show no shares at all.
    EXPECT_TRUE(std::regex_search(report, std::regex(R"(bot 1 actions: idle \d+% defend \d+% retreat \d+% approach \d+% say [1-9])")))
        << report;
    EXPECT_EQ(run(GAME, botsim + fighter), 2);
    EXPECT_EQ(run(GAME, botsim + " --rounds 0 a b"), 2);
    EXPECT_EQ(run(GAME, botsim + " --rounds 1 character/none/init.lua" + fighter), 1);
}

// spriteview draws a sprite file the way the game does: its last frame is read back.
TEST(SpriteView, ShowsTheFighterWithItsMarkersAndNames) {
    TestSupport::ScopedTempDir temp;
    const std::string shot = temp.path() + "/shot.bmp";
    const std::string data = KORVANE_SOURCE_DIR "/data";
    ASSERT_EQ(run(data, TOOLS + "spriteview character/default/character.xml --frames 3 --shot " + shot), 0);
    SDL_Surface* frame = SDL_LoadBMP(shot.c_str());
    ASSERT_TRUE(frame && frame->w == 800 && frame->h == 600 && frame->format->BytesPerPixel == 3);
    // The idle row comes first: the fighter's purple body in its cells.
    EXPECT_GT(countNear(frame, 0, 40, 420, 160, 123, 92, 214, 20), 400);
    // The attachment point of the mouth, and the header and names in white.
    EXPECT_GT(countNear(frame, 0, 40, 420, 160, 255, 40, 120, 10), 20);
    EXPECT_GT(countNear(frame, 0, 0, 800, 24, 255, 255, 255, 10), 100);
    SDL_FreeSurface(frame);
    EXPECT_EQ(run(data, TOOLS + "spriteview no/such/sprite.xml --frames 1"), 1);
    EXPECT_EQ(run(data, TOOLS + "spriteview"), 2);
}
