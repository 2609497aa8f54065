#include "statechart/json/jsonkeys.h"

namespace {

/// An array or object, and how much of it was looked at.
struct Level
{
    const JsonArray* array;
    const JsonObject* object;
    std::size_t next = 0;
};

} // namespace

void forEachUnwritableKey(const JsonObject& document, const std::function<bool(const JsonPath& path)>& take)
{
    std::vector<Level> levels{{nullptr, &document}};
    JsonPath path; // to the value that is being looked at
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == (level.array != nullptr ? level.array->size() : level.object->size())) {
            levels.pop_back();
            if (!path.empty())
                path.pop_back();
            continue;
        }
        const JsonValue* value = nullptr;
        if (level.array != nullptr) {
            value = &(*level.array)[level.next];
            path.emplace_back(level.next);
        } else {
            const JsonMember& member = level.object->begin()[static_cast<std::ptrdiff_t>(level.next)];
            value = &member.value;
            path.emplace_back(member.key);
            if (member.key.find_first_of("\"\\") != std::string::npos && !take(path))
                return;
        }
        ++level.next;
        if (value->isArray())
            levels.push_back({&value->asArray(), nullptr});
        else if (value->isObject())
            levels.push_back({nullptr, &value->asObject()});
        else
            path.pop_back();
    }
}
