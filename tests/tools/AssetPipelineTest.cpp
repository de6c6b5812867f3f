// The generated pictures and sounds under data/ must be exactly what the
// pipeline in assets/ makes from its sources, so that nobody edits a
// generated file by hand and every committed file can be made again.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "TestSupport.h"

namespace fs = std::filesystem;

namespace {

const char* const PIPELINE_TOOLS[] = {"python3", "rsvg-convert", "convert", "espeak-ng", "sox", "oggenc"};
const char* const DEJAVU_BOLD = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf";

bool haveTool(const std::string& name) {
    return std::system(("command -v " + name + " >/dev/null 2>&1").c_str()) == 0;
}

std::string missingTools() {
    std::string missing;
    for (const char* tool : PIPELINE_TOOLS)
        if (!haveTool(tool)) missing += std::string(" ") + tool;
    if (!fs::exists(DEJAVU_BOLD)) missing += " fonts-dejavu-core";
    return missing;
}

// Paths of all files below root, relative to it.
std::set<std::string> filesBelow(const fs::path& root) {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(root))
        if (entry.is_regular_file()) names.insert(fs::relative(entry.path(), root).generic_string());
    return names;
}

bool isGeneratedKind(const std::string& name) {
    const std::string ext = fs::path(name).extension().string();
    return ext == ".png" || ext == ".ogg" || ext == ".jpg" || ext == ".bmp" || ext == ".xml";
}

}  // namespace

TEST(AssetPipeline, RebuildMatchesCommittedData) {
    const std::string missing = missingTools();
    if (!missing.empty()) GTEST_SKIP() << "asset tools not installed:" << missing;

    TestSupport::ScopedTempDir temp;
    const fs::path out = fs::path(temp.path()) / "data";
    const fs::path data = fs::path(KORVANE_SOURCE_DIR) / "data";
    const std::string command = std::string(KORVANE_SOURCE_DIR) + "/assets/build.sh '" + out.string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0) << command;

    const std::set<std::string> built = filesBelow(out);
    for (const char* required : {"character/default/character.xml", "character/default/shadow.xml",
                                 "character/default/speech.xml", "arena/default/bg.xml",
                                 "arena/osmiornica/bg.xml", "font/font_02.xml", "bg.jpg", "icon.bmp"})
        EXPECT_TRUE(built.count(required)) << required << " is not made by the pipeline";

    std::vector<std::string> differing;
    for (const std::string& name : built) {
        const fs::path committed = data / name;
        if (!fs::exists(committed) ||
            TestSupport::readFile((out / name).string()) != TestSupport::readFile(committed.string()))
            differing.push_back(name);
    }
    EXPECT_TRUE(differing.empty()) << "differ from data/ (run assets/build.sh and commit): " << ::testing::PrintToString(differing);

    // A generated kind of file in data/ that the pipeline doesn't make has no source.
    std::vector<std::string> orphans;
    for (const std::string& name : filesBelow(data))
        if (isGeneratedKind(name) && !built.count(name)) orphans.push_back(name);
    EXPECT_TRUE(orphans.empty()) << "no source in assets/: " << ::testing::PrintToString(orphans);
}
