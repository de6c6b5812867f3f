# The game carries Lua inside it and exports the Lua C API under its usual
# names, so that Lua C modules which don't link liblua themselves can be
# loaded by `require`. Nothing else of the executable is exported.
#
# The names live in src/script/LuaApi.exports, one per line: every lua_,
# luaL_ and luaopen_ function of liblua5.2.a.
set(KORVANE_LUA_API_LIST ${CMAKE_CURRENT_LIST_DIR}/../src/script/LuaApi.exports)
file(STRINGS ${KORVANE_LUA_API_LIST} KORVANE_LUA_API)
set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${KORVANE_LUA_API_LIST})

# A version script rather than a dynamic list: "local: *" also hides what a
# shared library happens to reference, such as libpulse's weak `main`.
list(JOIN KORVANE_LUA_API ";\n    " _korvane_lua_api_body)
set(KORVANE_LUA_VERSION_SCRIPT ${CMAKE_BINARY_DIR}/lua-api.map)
file(GENERATE OUTPUT ${KORVANE_LUA_VERSION_SCRIPT}
  CONTENT "{\n  global:\n    ${_korvane_lua_api_body};\n  local: *;\n};\n")

function(korvane_export_lua target)
  target_link_options(${target} PRIVATE
    "LINKER:--export-dynamic" "LINKER:--version-script=${KORVANE_LUA_VERSION_SCRIPT}")
  # A static link keeps only what the game calls; the modules need the rest.
  foreach(name ${KORVANE_LUA_API})
    target_link_options(${target} PRIVATE "LINKER:--undefined=${name}")
  endforeach()
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${KORVANE_LUA_VERSION_SCRIPT})
endfunction()
