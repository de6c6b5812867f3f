#include "frontend/ContentList.h"

#include <new>

#include "resources/Parser.h"
#include "resources/Resource.h"
#include "shell/Log.h"

namespace {

// Resource::listDir puts "." and ".." first.
const std::size_t SKIPPED_ENTRIES = 2;

void addListed(const std::string& folder, const std::string& operation, const char* noneMessage,
               std::vector<std::string>& out) {
    char* text = Resource::read(folder + "/list.txt");
    if (!text) {
        Log::fail("%s: Nie udalo sie wczytac listy", operation.c_str());
        return;
    }
    Parser lines(std::string(text), "\r\n");
    delete[] text;
    if (lines.count() == 0) {
        Log::fail("%s: %s", operation.c_str(), noneMessage);
        return;
    }
    for (int32_t i = 0; i < lines.count(); ++i) out.push_back(lines.show(i));
}

}  // namespace

namespace ContentList {

std::vector<std::string> names(const std::string& folder, const std::string& operation, const char* noneMessage) {
    std::vector<std::string> out;
    addListed(folder, operation, noneMessage, out);
    std::vector<std::string> entries;
    Resource::listDir(folder, entries);
    for (std::size_t i = SKIPPED_ENTRIES; i < entries.size(); ++i) out.push_back(entries[i]);
    return out;
}

std::vector<std::string> listedScripts(const std::string& folder, const std::string& operation,
                                       const char* noneMessage) {
    std::vector<std::string> listed;
    addListed(folder, operation, noneMessage, listed);
    std::vector<std::string> out;
    for (const std::string& name : listed)
        if (Resource::exists(scriptPath(folder, name))) out.push_back(scriptPath(folder, name));
    return out;
}

std::string scriptPath(const std::string& folder, const std::string& name) { return folder + "/" + name + "/init.lua"; }

std::string description(const std::string& folder, const std::string& name, const std::string& operation) {
    char* text = Resource::read(folder + "/" + name + "/desc.txt");
    if (!text) return std::string();
    std::string out;
    try {
        out = text;
    } catch (const std::bad_alloc&) {
        Log::fail("%s: Nie udalo sie zajac pamieci", operation.c_str());
    }
    delete[] text;
    return out;
}

}  // namespace ContentList
