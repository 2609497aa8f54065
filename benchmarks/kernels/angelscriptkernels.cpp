#include "kernels.h"

#include <angelscript.h>

#include <cmath>
#include <stdexcept>
#include <string>

namespace {

constexpr std::array<const char*, 3> sources = {
    R"(double run() {
           int x = 1;
           for (int i = 0; i < 5000000; ++i)
               x = (x * 3 + 7) % 1000003;
           return x;
       })",
    R"(double run() {
           double y = 1.0;
           for (int i = 0; i < 2000000; ++i)
               y = (y * 0.5 + sin(y)) + 1.0;
           return y;
       })",
    R"(double run() {
           int s = 0;
           int b = 0;
           int c = 0;
           for (int i = 0; i < 3000; ++i)
               for (int j = 0; j < 1000; ++j) {
                   if (s < 1000) s = s + j; else s = s - i;
                   if (s == j) b = b + 1; else if (s > i) c = c + 1;
               }
           return s + b * 3 + c * 7;
       })",
};

double sine(double value)
{
    return std::sin(value);
}

template <class Object>
struct Releaser
{
    void operator()(Object* object) const { object->Release(); }
};

struct Shutdown
{
    void operator()(asIScriptEngine* engine) const { engine->ShutDownAndRelease(); }
};

class AngelScriptKernel : public Kernel
{
public:
    explicit AngelScriptKernel(const char* source) : m_engine(asCreateScriptEngine())
    {
        // Nothing interrupts a kernel: the engine need not look for a request to do so at each line.
        m_engine->SetEngineProperty(asEP_BUILD_WITHOUT_LINE_CUES, 1);
        require(m_engine->RegisterGlobalFunction("double sin(double)", asFUNCTION(sine), asCALL_CDECL));
        asIScriptModule* module = m_engine->GetModule("kernel", asGM_ALWAYS_CREATE);
        require(module->AddScriptSection("kernel", source));
        require(module->Build());
        m_function = module->GetFunctionByDecl("double run()");
        m_context.reset(m_engine->CreateContext());
    }

    double run() override
    {
        require(m_context->Prepare(m_function));
        require(m_context->Execute());
        return m_context->GetReturnDouble();
    }

private:
    static void require(int outcome)
    {
        if (outcome < 0)
            throw std::runtime_error("AngelScript refuses a kernel: " + std::to_string(outcome));
    }

    std::unique_ptr<asIScriptEngine, Shutdown> m_engine;
    asIScriptFunction* m_function = nullptr;
    std::unique_ptr<asIScriptContext, Releaser<asIScriptContext>> m_context;
};

} // namespace

std::unique_ptr<Kernel> makeAngelScriptKernel(std::size_t index)
{
    return std::make_unique<AngelScriptKernel>(sources.at(index));
}
