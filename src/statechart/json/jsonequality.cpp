#include "statechart/json/jsonvalue.h"

#include <utility>

namespace {

/// Compares values in pairs, one pair after the other, so that depth takes no stack.
class Comparison
{
public:
    void add(const JsonValue& left, const JsonValue& right) { m_pairs.emplace_back(&left, &right); }

    bool addMembers(const JsonObject& left, const JsonObject& right)
    {
        if (left.size() != right.size())
            return false;
        for (const JsonMember& member : left) {
            const JsonValue* const other = right.find(member.key);
            if (other == nullptr)
                return false;
            add(member.value, *other);
        }
        return true;
    }

    bool addElements(const JsonArray& left, const JsonArray& right)
    {
        if (left.size() != right.size())
            return false;
        for (std::size_t index = 0; index < left.size(); ++index)
            add(left[index], right[index]);
        return true;
    }

    bool allEqual()
    {
        while (!m_pairs.empty()) {
            const auto [left, right] = m_pairs.back();
            m_pairs.pop_back();
            if (!sameOutside(*left, *right))
                return false;
        }
        return true;
    }

private:
    bool sameOutside(const JsonValue& left, const JsonValue& right)
    {
        if (left.type() != right.type())
            return false;
        switch (left.type()) {
        case JsonValue::Type::array:
            return addElements(left.asArray(), right.asArray());
        case JsonValue::Type::boolean:
            return left.asBool() == right.asBool();
        case JsonValue::Type::number:
            return left.asNumber() == right.asNumber();
        case JsonValue::Type::object:
            return addMembers(left.asObject(), right.asObject());
        case JsonValue::Type::string:
            return left.asString() == right.asString();
        case JsonValue::Type::null:
            break;
        }
        return true;
    }

    std::vector<std::pair<const JsonValue*, const JsonValue*>> m_pairs;
};

} // namespace

bool operator==(const JsonValue& left, const JsonValue& right)
{
    Comparison comparison;
    comparison.add(left, right);
    return comparison.allEqual();
}

bool operator==(const JsonObject& left, const JsonObject& right)
{
    Comparison comparison;
    return comparison.addMembers(left, right) && comparison.allEqual();
}

bool operator==(const JsonMember& left, const JsonMember& right)
{
    return left.key == right.key && left.value == right.value;
}
