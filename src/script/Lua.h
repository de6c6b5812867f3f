#pragma once
#include <lua.hpp>

#include <cstdint>
#include <string>

// One Lua interpreter owned by one game object. Script faults never escape:
// they are printed as one "FAIL: Lua.update: Error: " line and the stack is
// emptied, so the owner can go on calling.
//
// A callback is called by pushing its arguments (pushNumber, pushString) and
// then call(name). The results of a call stay on the stack until the next
// call, which drops whatever the caller left unread.
class Lua {
public:
    Lua();
    ~Lua();
    Lua(const Lua&) = delete;
    Lua& operator=(const Lua&) = delete;

    void start();
    bool openFile(const std::string& path);
    bool regFunc(lua_CFunction function, const std::string& name);
    void update();
    bool hasFunction(const std::string& name);
    void declare(const std::string& name);
    bool run(const std::string& text);

    bool pushNumber(float value);
    bool pushString(const std::string& value);
    bool call(const std::string& name);
    int ref(const std::string& name);
    bool callRef(int reference);

    void setVal(const std::string& key, int32_t value);
    void setStr(const std::string& key, const std::string& value);
    void setPtr(const std::string& key, void* value);
    // The value read stays on the stack (the string lives there) until the
    // next call; read registry values before pushing arguments, not between.
    int32_t getVal(const std::string& key);
    const char* getStr(const std::string& key);
    void* getPtr(const std::string& key);

    lua_State* getState() const { return state; }
    bool isReady() const { return ready; }

private:
    void clearStack();
    bool loadAndRun(const std::string& text);
    void dropUnreadValues();
    bool pushGlobal(const std::string& name);
    void callPushedFunction();
    bool pushRegistryValue(const std::string& key);
    void storeInRegistry(const std::string& key);

    lua_State* state;
    int32_t status;
    bool ready;
    int32_t argCount;
};
