// The overloads of every function of a device, in the order of their table.

#include "statechart/devicefunctions.h"

namespace {

std::string signatureOf(const AbstractFunctionOperatorImpl& overload)
{
    std::string signature = "(";
    std::string_view separator;
    for (const DataType type : overload.argumentTypes()) {
        signature += separator;
        signature += typeName(type);
        separator = ", ";
    }
    signature += ") ";
    signature += typeName(overload.returnType());
    return signature;
}

struct Signatures
{
    std::string_view name;
    std::vector<std::string> overloads;
};

const Signatures expected[] = {
    {"setVariable",
     {"(string, int) void", "(string, double) void", "(string, string) void", "(string, bool) void",
      "(string, int64_t) void", "(string, uint64_t) void"}},
    {"getVariable_int", {"(string) int"}},
    {"getVariable_double", {"(string) double"}},
    {"getVariable_string", {"(string) string"}},
    {"getVariable_bool", {"(string) bool"}},
    {"getVariable_int64_t", {"(string) int64_t"}},
    {"getVariable_uint64_t", {"(string) uint64_t"}},
    {"getParameter_int64_t", {"(string) int64_t"}},
    {"getParameter_uint64_t", {"(string) uint64_t"}},
    {"getParameter_double", {"(string) double"}},
    {"readBus_int64_t", {"(string) int64_t"}},
    {"readBus_uint64_t", {"(string) uint64_t"}},
    {"writeBus",
     {"(string, int) void", "(string, int, double) void", "(string, int64_t) void",
      "(string, int64_t, double) void", "(string, uint64_t) void", "(string, uint64_t, double) void"}},
    {"isPinHigh", {"(string) bool"}},
    {"isPinLow", {"(string) bool"}},
    {"isBusPinHigh", {"(string, int) bool"}},
    {"isBusPinLow", {"(string, int) bool"}},
    {"simulationTime", {"() double"}},
    {"isEdgeEvent", {"(string) bool"}},
    {"isPositiveEdge", {"(string) bool"}},
    {"isNegativeEdge", {"(string) bool"}},
    {"setBusPinHigh", {"(string, int) void", "(string, int, double) void"}},
    {"setBusPinLow", {"(string, int) void", "(string, int, double) void"}},
    {"setPinHigh", {"(string) void", "(string, double) void"}},
    {"setPinLow", {"(string) void", "(string, double) void"}},
    {"etod", {"(string) double"}},
};

TEST(DeviceSignatures, AreThoseOfTheTable)
{
    const FunctionRules rules = constructDeviceFunctionRules();
    ASSERT_EQ(rules.size(), std::size(expected));
    for (std::size_t i = 0; i < rules.size(); ++i) {
        std::vector<std::string> signatures;
        for (const FunctionOverload& overload : rules[i]->overloads())
            signatures.push_back(signatureOf(*overload));
        EXPECT_EQ(rules[i]->name(), expected[i].name);
        // The sequence of the overloads of writeBus is free.
        if (expected[i].name == "writeBus") {
            EXPECT_THAT(signatures, testing::UnorderedElementsAreArray(expected[i].overloads));
        } else {
            EXPECT_EQ(signatures, expected[i].overloads) << expected[i].name;
        }
    }
}

} // namespace
