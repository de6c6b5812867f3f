#pragma once
#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

// The one door through which game data are read: files kept in memory, plain
// files beside the game, and the archives named in a list file, in that order.
// Every buffer handed out is new, has a zero byte behind its content and
// belongs to the caller (delete[]); its size is lastSize(), which must be
// fetched before the next read.
namespace Resource {

bool open(const std::string& listPath);
void clear();

bool exists(const std::string& name);
bool isRaw(const std::string& name);
bool isRes(const std::string& name);
bool isBuff(const std::string& name);

char* read(const std::string& name);
char* readRaw(const std::string& name);
char* readRes(const std::string& name);
char* readBuff(const std::string& name);
uint32_t lastSize();
uint32_t size(const std::string& name);

bool preload(const std::string& name);
// The store takes ownership of data (allocated with new[], size+1 bytes).
bool preload(const std::string& name, uint32_t size, char* data);

uint32_t listDir(const std::string& path, std::vector<std::string>& names);
time_t modTime(const std::string& path);

}  // namespace Resource
