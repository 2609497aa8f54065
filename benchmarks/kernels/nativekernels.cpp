#include "kernels.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>

// The limit: the same loops in C++. What they start from is hidden from the compiler.

namespace {

template <class T>
T hidden(T value)
{
    benchmark::DoNotOptimize(value);
    return value;
}

double integers()
{
    const int rounds = hidden(5000000);
    std::int32_t x = hidden(1);
    for (int i = 0; i < rounds; ++i)
        x = (x * 3 + 7) % 1000003;
    return x;
}

double reals()
{
    const int rounds = hidden(2000000);
    double y = hidden(1.0);
    for (int i = 0; i < rounds; ++i)
        y = (y * 0.5 + std::sin(y)) + 1.0;
    return y;
}

double branches()
{
    const int outer = hidden(3000);
    const int inner = hidden(1000);
    std::int32_t s = hidden(0);
    std::int32_t b = 0;
    std::int32_t c = 0;
    for (int i = 0; i < outer; ++i)
        for (int j = 0; j < inner; ++j) {
            if (s < 1000)
                s = s + j;
            else
                s = s - i;
            if (s == j)
                b = b + 1;
            else if (s > i)
                c = c + 1;
        }
    return s + b * 3 + c * 7;
}

class NativeKernel : public Kernel
{
public:
    explicit NativeKernel(double (*function)()) : m_function(function) {}

    double run() override { return m_function(); }

private:
    double (*m_function)();
};

constexpr std::array<double (*)(), 3> kernels = {integers, reals, branches};

} // namespace

std::unique_ptr<Kernel> makeNativeKernel(std::size_t index)
{
    return std::make_unique<NativeKernel>(kernels.at(index));
}
