#ifndef KERNELS_H
#define KERNELS_H

#include <array>
#include <memory>

// Three loops that every engine runs as its own code, with the same numbers in it:
//
//   kernel 1, integers:  x = 1; 5000000 times x = (x * 3 + 7) % 1000003; the result is x
//   kernel 2, reals:     y = 1; 2000000 times y = (y * 0.5 + sin(y)) + 1.0; the result is y
//   kernel 3, branches:  s = b = c = 0; for i below 3000, for j below 1000:
//                            if (s < 1000) s = s + j; else s = s - i;
//                            if (s == j) b = b + 1; else if (s > i) c = c + 1;
//                        the result is s + b * 3 + c * 7
//
// To add an engine: a file that makes its kernels, and a row in kernelsbenchmark.cpp.

inline constexpr std::array<int, 3> kernelRounds = {5000000, 2000000, 3000 * 1000};

/// One kernel, compiled and ready.
class Kernel
{
public:
    virtual ~Kernel() = default;

    /// Runs all rounds and gives the result.
    virtual double run() = 0;
};

/// Makes kernel `index`, from 0. @throws std::runtime_error when the engine refuses the text.
using MakeKernel = std::unique_ptr<Kernel>(std::size_t index);

MakeKernel makeNativeKernel;
MakeKernel makeHalvorinKernel;
MakeKernel makeAngelScriptKernel;

#endif
