#include "bounded/boundedform.h"

namespace {

bool isText(const JsonObject& object, std::string_view key, std::initializer_list<std::string_view> texts)
{
    const JsonValue* value = object.find(key);
    if (value)
        for (const std::string_view text : texts)
            if (value->equals(text))
                return true;
    return false;
}

JsonObject call(const char* function, JsonArray types, JsonArray arguments)
{
    return {
        {"rule", "call"}, {"func", function}, {"argTypes", std::move(types)}, {"args", std::move(arguments)}};
}

void countRounds(JsonObject& loop)
{
    JsonValue* body = loop.find("loop");
    if (!body)
        return;
    JsonArray counted;
    counted.emplace_back(
        JsonObject{{"rule", "expr"}, {"type", "void"}, {"expr", call("countRound", {}, {})}});
    counted.push_back(std::move(*body));
    *body = std::move(counted);
}

/// @param types has the type of the divisor under `typeKey`
void guardDivisor(const JsonObject& types, std::string_view typeKey, JsonValue& divisor)
{
    const bool cannotFault = divisor.isInt() && divisor.asInt() != 0 && divisor.asInt() != -1;
    if (cannotFault || !isText(types, typeKey, {"int", "int64_t", "uint64_t"}))
        return;
    JsonArray arguments;
    arguments.push_back(std::move(divisor));
    divisor = call("divisor", {types.at(typeKey)}, std::move(arguments));
}

void boundObject(JsonObject& object)
{
    if (isText(object, "rule", {"while", "do", "for"}))
        countRounds(object);
    JsonValue* right = object.find("rhs");
    if (right && isText(object, "rule", {"binop"}) && isText(object, "op", {"/", "%"}) && right->isObject()) {
        if (JsonValue* divisor = right->asObject().find("expr"))
            guardDivisor(right->asObject(), "type", *divisor);
    } else if (right && isText(object, "rule", {"assign"}) && isText(object, "op", {"/=", "%="})) {
        guardDivisor(object, "rtype", *right);
    }
}

} // namespace

void bound(JsonValue& form)
{
    // What was put in does not grow again: its parts are visited, but none is a loop or a division.
    std::vector<JsonValue*> open{&form};
    while (!open.empty()) {
        JsonValue& value = *open.back();
        open.pop_back();
        if (value.isArray()) {
            for (JsonValue& element : value.asArray())
                open.push_back(&element);
        } else if (value.isObject()) {
            JsonObject& object = value.asObject();
            boundObject(object);
            for (const JsonMember& member : object)
                open.push_back(object.find(member.key));
        }
    }
}
