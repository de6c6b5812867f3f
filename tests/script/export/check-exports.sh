#!/bin/sh
# Usage: check-exports.sh EXECUTABLE API_LIST CORE_LIBRARY
# (A local symbol can stand in the dynamic table without being exported.)
# Passes when the executable exports exactly the functions of API_LIST among
# the lua_/luaL_/luaopen_ names and no symbol that the game's code defines.
exe=$1 list=$2 core=$3
command -v nm >/dev/null 2>&1 || { echo "nm not found"; exit 77; }
tmp=$(mktemp -d) || exit 1
trap 'rm -rf "$tmp"' EXIT

nm -D -g --defined-only "$exe" | awk '{print $NF}' | sort -u > "$tmp/exported"
grep -E '^(lua_|luaL_|luaopen_)' "$tmp/exported" > "$tmp/lua"
sort -u "$list" > "$tmp/expected"
status=0
if ! cmp -s "$tmp/lua" "$tmp/expected"; then
    echo "Lua API exports differ from $list (< exported, > expected):"
    diff "$tmp/lua" "$tmp/expected"
    status=1
fi
echo "$(wc -l < "$tmp/lua") Lua API functions exported"

# The game's own symbols: everything its library and main define.
nm -g --defined-only "$core" 2>/dev/null | awk 'NF == 3 {print $3}' > "$tmp/game"
echo main >> "$tmp/game"
sort -u -o "$tmp/game" "$tmp/game"
leaked=$(comm -12 "$tmp/exported" "$tmp/game")
if [ -n "$leaked" ]; then
    echo "Game symbols exported:"
    echo "$leaked"
    status=1
fi

# Besides, only shared libraries' data held by copy relocation (stdout@GLIBC_...,
# an unversioned library's vtable) and the sanitizer runtimes' own names may show.
readelf -rW "$exe" 2>/dev/null | awk '$3 ~ /_COPY$/ {sub(/@.*/, "", $5); print $5}' | sort -u > "$tmp/copied"
other=$(grep -vE '^(lua_|luaL_|luaopen_|__(asan|ubsan|lsan|tsan|sanitizer)_)' "$tmp/exported" | grep -v '@' |
    grep -vxF -f "$tmp/copied")
if [ -n "$other" ]; then
    echo "Unexpected exports:"
    echo "$other"
    status=1
fi
exit $status
