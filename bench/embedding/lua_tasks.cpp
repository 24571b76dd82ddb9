// The embedding tasks of quorl_tasks.cpp, done with the Lua 5.4 C API from
// a C++ host, for the count of host code only (`count`): written for the
// comparison and not built here. Where Lua offers less (no column in a
// syntax error, no class of an error, a stop that pcall can catch), the
// code does what Lua allows and says so.
#include <lauxlib.h>
#include <lua.h>
#include <lualib.h>

#include <atomic>
#include <cassert>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

// task: run a script and take its output
static int CollectLine(lua_State* L) {
  auto* out = static_cast<std::vector<std::string>*>(lua_touserdata(L, lua_upvalueindex(1)));
  out->push_back(luaL_checkstring(L, 1));
  return 0;
}

void RunAScript() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  std::vector<std::string> out;
  lua_pushlightuserdata(L, &out);
  lua_pushcclosure(L, CollectLine, 1);
  lua_setglobal(L, "print");
  luaL_dostring(L, "for i = 1, 3 do print('line ' .. i) end");
  lua_close(L);
  assert(out.size() == 3 && out[2] == "line 3");
}

// task: read a compile error and an uncaught exception
// Lua gives one text per error: "[string ...]:LINE: MESSAGE", no column,
// no number and no class; the line has to be parsed out of the text.
static int LineOf(std::string const& message) {
  std::size_t colon = message.find("]:");
  return colon == std::string::npos ? 0 : std::atoi(message.c_str() + colon + 2);
}

void ReadErrors() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  if (luaL_loadstring(L, "local total = 0\ntotal = = 1\n") != LUA_OK) {
    std::string message = lua_tostring(L, -1);
    lua_pop(L, 1);
    assert(LineOf(message) == 2);
  }
  if (luaL_dostring(L, "local a = {}\nerror('index out of bounds')\n") != LUA_OK) {
    std::string message = lua_tostring(L, -1);
    lua_pop(L, 1);
    assert(LineOf(message) == 2);
  }
  lua_close(L);
}

// task: stop a runaway script from the yield hook and from another thread
static std::atomic<bool> gStop;
static int gYields;

static void StopHook(lua_State* L, lua_Debug*) {
  if (++gYields == 10000) gStop = true;
  if (gStop) luaL_error(L, "stopped");  // a pcall in the script can catch it
}

void StopRunaways() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  lua_sethook(L, StopHook, LUA_MASKCOUNT, 1000);
  gStop = false;
  assert(luaL_dostring(L, "local n = 0 while true do n = n + 1 end") != LUA_OK);
  lua_pop(L, 1);
  gStop = false;
  gYields = -1000000000;
  std::thread watchdog([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    gStop = true;
  });
  assert(luaL_dostring(L, "local n = 0 while true do n = n + 1 end") != LUA_OK);
  lua_pop(L, 1);
  watchdog.join();
  lua_close(L);
}

// task: a context property the script reads and assigns
static int gScore = 0;

static int GlobalsIndex(lua_State* L) {
  if (std::strcmp(luaL_checkstring(L, 2), "Score") != 0) return 0;
  lua_pushinteger(L, gScore);
  return 1;
}

static int GlobalsNewIndex(lua_State* L) {
  if (std::strcmp(luaL_checkstring(L, 2), "Score") == 0) {
    gScore = static_cast<int>(luaL_checkinteger(L, 3));
  } else {
    lua_rawset(L, 1);
  }
  return 0;
}

void AssignAProperty() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  lua_pushglobaltable(L);
  lua_newtable(L);
  lua_pushcfunction(L, GlobalsIndex);
  lua_setfield(L, -2, "__index");
  lua_pushcfunction(L, GlobalsNewIndex);
  lua_setfield(L, -2, "__newindex");
  lua_setmetatable(L, -2);
  lua_pop(L, 1);
  luaL_dostring(L, "Score = Score + 5");
  lua_close(L);
  assert(gScore == 5);
}

// task: host functions, one raising an error the script catches
// A C++ exception must not cross Lua's C frames: each function that may
// throw catches it and raises a Lua error instead.
static int Twice(lua_State* L) {
  lua_pushinteger(L, 2 * luaL_checkinteger(L, 1));
  return 1;
}

static int Root(lua_State* L) {
  double x = luaL_checknumber(L, 1);
  std::string failure;
  try {
    if (x < 0) throw std::domain_error("no root of a negative number");
    lua_pushnumber(L, x < 1 ? x : x / 2);
    return 1;
  } catch (std::exception const& e) {
    failure = e.what();
  }
  return luaL_error(L, "%s", failure.c_str());
}

void BindFunctions() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  std::vector<std::string> out;
  lua_pushlightuserdata(L, &out);
  lua_pushcclosure(L, CollectLine, 1);
  lua_setglobal(L, "print");
  lua_register(L, "Twice", Twice);
  lua_register(L, "Root", Root);
  luaL_dostring(L, "print(tostring(Twice(21)))\n"
                   "if not pcall(Root, -1) then print('caught') end\n");
  lua_close(L);
  assert(out.size() == 2 && out[0] == "42" && out[1] == "caught");
}

// task: call a script's function with two arguments and read the result
void CallAFunction() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  luaL_dostring(L, "function Area(w, h) return w * h end");
  lua_getglobal(L, "Area");
  lua_pushinteger(L, 6);
  lua_pushinteger(L, 7);
  if (lua_pcall(L, 2, 1, 0) != LUA_OK) throw std::runtime_error(lua_tostring(L, -1));
  int area = static_cast<int>(lua_tointeger(L, -1));
  lua_pop(L, 1);
  lua_close(L);
  assert(area == 42);
}

// task: run scripts on several threads at once
static int KeepResult(lua_State* L) {
  *static_cast<std::string*>(lua_touserdata(L, lua_upvalueindex(1))) = luaL_checkstring(L, 1);
  return 0;
}

void RunOnThreads() {
  std::vector<std::string> results(4);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([t, &results] {
      lua_State* L = luaL_newstate();
      luaL_openlibs(L);
      lua_pushlightuserdata(L, &results[t]);
      lua_pushcclosure(L, KeepResult, 1);
      lua_setglobal(L, "print");
      luaL_dostring(L, ("print(tostring(" + std::to_string(t) + " * 10))").c_str());
      lua_close(L);
    });
  }
  for (std::thread& thread : threads) thread.join();
  assert(results[3] == "30");
}

// task: end
int main() {
  RunAScript();
  ReadErrors();
  StopRunaways();
  AssignAProperty();
  BindFunctions();
  CallAFunction();
  RunOnThreads();
  std::puts("all tasks ran");
  return 0;
}
