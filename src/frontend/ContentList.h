#pragma once
#include <string>
#include <vector>

#include "gameplay/ObjectType.h"

// The names of the fighters or arenas a selection screen offers, each a
// folder under `folder` with an "init.lua" and a "desc.txt".
namespace ContentList {

// The folder's "list.txt", one name a line in its order, then every entry of
// the folder on disk. Failures are logged under `operation`; `noneMessage`
// tells that the list names nothing.
std::vector<std::string> names(const std::string& folder, const std::string& operation, const char* noneMessage);
// The scripts of the names in the folder's "list.txt", in its order, those
// that exist; failures as in names.
std::vector<std::string> listedScripts(const std::string& folder, const std::string& operation,
                                       const char* noneMessage);
// Where a name's script lies.
std::string scriptPath(const std::string& folder, const std::string& name);
// A fighter or an arena of this machine alone, loaded from its folder; null,
// with the cause logged, when its script fails.
template <typename Loadable>
Loadable* load(const std::string& folder, const std::string& name) {
    auto* loaded = new Loadable();
    loaded->objectType = OBJECT_LOCAL;
    if (loaded->init(scriptPath(folder, name))) return loaded;
    delete loaded;
    return nullptr;
}
// The name's "desc.txt", or the empty text when there is none.
std::string description(const std::string& folder, const std::string& name, const std::string& operation);

}  // namespace ContentList
