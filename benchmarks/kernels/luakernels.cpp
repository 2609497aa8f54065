#include "kernels.h"

#include <lua.hpp>

#include <stdexcept>

// Lua and LuaJIT share this file and the names of their functions: each is a module of its own, which
// kernelsbenchmark.cpp loads apart from the other.

namespace {

constexpr std::array<const char*, 3> sources = {
    R"(local x = 1
       for i = 0, 5000000 - 1 do
           x = (x * 3 + 7) % 1000003
       end
       return x)",
    R"(local sin = math.sin
       local y = 1.0
       for i = 0, 2000000 - 1 do
           y = (y * 0.5 + sin(y)) + 1.0
       end
       return y)",
    R"(local s, b, c = 0, 0, 0
       for i = 0, 3000 - 1 do
           for j = 0, 1000 - 1 do
               if s < 1000 then s = s + j else s = s - i end
               if s == j then b = b + 1 elseif s > i then c = c + 1 end
           end
       end
       return s + b * 3 + c * 7)",
};

class LuaKernel : public Kernel
{
public:
    explicit LuaKernel(const char* source) : m_state(luaL_newstate())
    {
        luaL_openlibs(m_state.get());
        require(luaL_loadstring(m_state.get(), source) == 0);
    }

    double run() override
    {
        lua_pushvalue(m_state.get(), 1);
        require(lua_pcall(m_state.get(), 0, 1, 0) == 0);
        const double result = lua_tonumber(m_state.get(), -1);
        lua_settop(m_state.get(), 1);
        return result;
    }

private:
    void require(bool isDone)
    {
        if (!isDone)
            throw std::runtime_error(lua_tostring(m_state.get(), -1));
    }

    struct Closer
    {
        void operator()(lua_State* state) const { lua_close(state); }
    };
    std::unique_ptr<lua_State, Closer> m_state;
};

} // namespace

extern "C" __attribute__((visibility("default"))) Kernel* makeKernel(std::size_t index)
{
    return new LuaKernel(sources.at(index));
}
