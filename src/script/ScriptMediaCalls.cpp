#include <cstring>
#include <string>

#include "audio/Sound.h"
#include "script/ScriptCallSupport.h"
#include "script/ScriptCalls.h"
#include "shell/Event.h"
#include "shell/Log.h"

using ScriptCall::RANK_SERVER;

namespace {

struct SoundRequest {
    std::string name;
    float volume;
};

// The name is the last but one argument, or the only one; the volume is the
// last when there are two or more.
SoundRequest readSoundRequest(lua_State* L) {
    if (lua_gettop(L) >= 2) return {ScriptCall::text(L, -2), ScriptCall::number(L, -1)};
    return {ScriptCall::text(L, -1), 1.0f};
}

// On the server a sound goes to the clients through the listener, which
// owns the copied name from then on.
void sendToClients(lua_State* L, const SoundRequest& request) {
    EventListener* listener = static_cast<EventListener*>(ScriptCall::registryPointer(L, "_eventlistener"));
    if (!listener) return;
    char* name = new char[request.name.size() + 1];
    std::memcpy(name, request.name.c_str(), request.name.size() + 1);
    listener->onEvent(Event::sound(request.volume, name));
}

}  // namespace

namespace LuaFuncs {

int lPlaySound(lua_State* L) {
    if (lua_gettop(L) < 1) {
        Log::fail("LuaFuncs.%s: Za malo argumentow", "playSound");
        return 0;
    }
    SoundRequest request = readSoundRequest(L);
    if (ScriptCall::rank(L) == RANK_SERVER)
        sendToClients(L, request);
    else
        Sound::play(request.name, request.volume);
    return 0;
}

int lPlayMusic(lua_State* L) {
    if (!ScriptCall::hasArguments(L, "playMusic", 1)) return 0;
    SoundRequest request = readSoundRequest(L);
    if (ScriptCall::rank(L) == RANK_SERVER) {
        Log::fail("LuaFuncs.%s: Sry, nie chce mi sie robic muzyki po stronie serwera >:", "playMusic");
        return 0;
    }
    Sound::playMusic(request.name, request.volume);
    return 0;
}

}  // namespace LuaFuncs
