#include "statechart/deviceterminals.h"

#include "statechart/deviceenumerations.h"

#include <stdexcept>

namespace {

/// What is said of a member that is missing or wrong.
struct TerminalMessages
{
    const char* type;
    const char* width;
    const char* dataType;
    const char* encoding;
};

constexpr TerminalMessages inputMessages{
    .type = "input must have \"type\" property that is either \"bus\" or \"pin\"",
    .width = "input bus must have \"width\" property that is an integer greater than 0",
    .dataType = "input bus must have \"dataType\" property that is either \"int64\" or \"uint64\"",
    .encoding = "input int64 bus must have \"encoding\" property that is either \"OffsetBinary\" or "
                "\"TwosComplement\"",
};

constexpr TerminalMessages outputMessages{
    .type = "output must have \"type\" property that is either \"bus\" or \"pin\"",
    .width = "output bus must have \"width\" property that is an integer greater than 0",
    .dataType = "output bus must have \"dataType\" property that is either \"int64_t\" or \"uint64_t\"",
    .encoding = "output int64 bus must have \"encoding\" property that is either \"OffsetBinary\" or "
                "\"TwosComplement\"",
};

constexpr const char* busInitialMessage = "output must have \"initial\" property that is an integer";
constexpr const char* pinInitialMessage =
    "output must have \"initial\" property that is either \"0\" or \"1\"";

/// The value of one of the tables that the word under a key stands for.
template <class Words>
auto wordValue(const JsonObject& definition, const char* key, const Words& words, const char* message,
               CompileRecord& record)
{
    const CompileRecord::Step step = record.enter(key);
    const JsonValue* const word = definition.find(key);
    const auto value =
        word != nullptr && word->isString() ? valueOfWord(words, word->asString()) : std::nullopt;
    if (!value)
        throw std::runtime_error(message);
    return *value;
}

template <class Enumeration>
JsonValue number(Enumeration value)
{
    return JsonValue(static_cast<std::int32_t>(value));
}

/// Writes "type" and tells whether it is "bus".
bool compileType(const JsonObject& definition, const TerminalMessages& messages, JsonObject& compiled,
                 CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("type");
    const JsonValue* const type = definition.find("type");
    if (type == nullptr || !(type->equals("bus") || type->equals("pin")))
        throw std::runtime_error(messages.type);
    compiled.insert("type", *type);
    return type->equals("bus");
}

void compileWidth(const JsonObject& definition, const TerminalMessages& messages, JsonObject& compiled,
                  CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("width");
    const JsonValue* const width = definition.find("width");
    if (width == nullptr || !width->isInt() || width->asInt() <= 0)
        throw std::runtime_error(messages.width);
    compiled.insert("width", *width);
}

void compileBus(const JsonObject& definition, const TerminalMessages& messages, JsonObject& compiled,
                CompileRecord& record)
{
    record.attempt([&] { compileWidth(definition, messages, compiled, record); });
    record.attempt([&] {
        const BusDataType dataType =
            wordValue(definition, "dataType", busDataTypeWords, messages.dataType, record);
        compiled.insert("dataType", number(dataType));
        const BusEncoding encoding =
            dataType == BusDataType::int64
                ? wordValue(definition, "encoding", busEncodingWords, messages.encoding, record)
                : BusEncoding::unsignedBinary;
        compiled.insert("encoding", number(encoding));
    });
}

JsonValue compileBusInitial(const JsonObject& definition, CompileRecord& record)
{
    const CompileRecord::Step step = record.enter("initial");
    const JsonValue* const initial = definition.find("initial");
    if (initial == nullptr || !initial->isInt())
        throw std::runtime_error(busInitialMessage);
    return *initial;
}

} // namespace

JsonObject compileInput(const JsonObject& definition, CompileRecord& record)
{
    JsonObject compiled;
    if (compileType(definition, inputMessages, compiled, record))
        compileBus(definition, inputMessages, compiled, record);
    return compiled;
}

JsonObject compileOutput(const JsonObject& definition, CompileRecord& record)
{
    JsonObject compiled;
    if (compileType(definition, outputMessages, compiled, record)) {
        record.attempt([&] { compiled.insert("initial", compileBusInitial(definition, record)); });
        compileBus(definition, outputMessages, compiled, record);
    } else {
        compiled.insert("initial", number(wordValue(definition, "initial", pinInitialValueWords,
                                                    pinInitialMessage, record)));
    }
    return compiled;
}
