#ifndef LINKEDVARIABLE_H
#define LINKEDVARIABLE_H

#include "actionlanguage/types/datatype.h"

#include <memory>
#include <string>
#include <utility>
#include <variant>

/// A variable of a linked text: its id, and storage shared by every node that reads or writes it. Storage is
/// zero when linked and is never cleared after that: a variable keeps its value from run to run.
class LinkedVariable
{
public:
    /// @throws std::runtime_error for a type that has no values.
    LinkedVariable(std::string id, DataType type);

    const std::string& id() const { return m_id; }
    DataType type() const;

    /// The storage, or null when it is of another type.
    template <class T>
    std::shared_ptr<T> storage() const
    {
        const auto* held = std::get_if<std::shared_ptr<T>>(&m_storage);
        return held ? *held : nullptr;
    }

    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor) const
    {
        return std::visit(std::forward<Visitor>(visitor), m_storage);
    }

private:
    // The alternatives stand in the order of DataType.
    using Storage = std::variant<std::shared_ptr<bool>, std::shared_ptr<char>, std::shared_ptr<double>,
                                 std::shared_ptr<std::int32_t>, std::shared_ptr<std::int64_t>,
                                 std::shared_ptr<std::string>, std::shared_ptr<std::uint64_t>>;

    static Storage makeStorage(DataType type);

    std::string m_id;
    Storage m_storage;
};

#endif
