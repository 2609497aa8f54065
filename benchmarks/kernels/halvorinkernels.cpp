#include "kernels.h"

#include "actionlanguage/runtime/executioninterface.h"
#include "statechart/ddcodebuilderfactory.h"

#include <charconv>

namespace {

// An "else" takes the nearest "if"; "+" groups to the left, and of two operands the right comes first.
constexpr std::array<const char*, 3> sources = {
    R"(int x = 1;
       for (int i = 0; i < 5000000; ++i)
           x = (x * 3 + 7) % 1000003;
       print(x);)",
    R"(double y = 1.0;
       for (int i = 0; i < 2000000; ++i)
           y = y * 0.5 + sin(y) + 1.0;
       print(y);)",
    R"(int s = 0;
       int b = 0;
       int c = 0;
       for (int i = 0; i < 3000; ++i)
           for (int j = 0; j < 1000; ++j) {
               if (s < 1000) s = s + j; else s = s - i;
               if (s == j) b = b + 1; else if (s > i) c = c + 1;
           }
       print(s + b * 3 + c * 7);)",
};

class HalvorinKernel : public Kernel, private AbstractExecutionInterface
{
public:
    explicit HalvorinKernel(const char* source)
    {
        const auto builder = DDCodeBuilderFactory::createCodeBuilder();
        m_statements = builder->linkStatements(builder->compileStatements(source).value());
    }

    double run() override
    {
        m_statements.execute(*this);
        return m_result;
    }

private:
    void print(const std::string& text) override
    {
        std::from_chars(text.data(), text.data() + text.size(), m_result);
    }

    LinkedStatements m_statements;
    double m_result = 0;
};

} // namespace

std::unique_ptr<Kernel> makeHalvorinKernel(std::size_t index)
{
    return std::make_unique<HalvorinKernel>(sources.at(index));
}
