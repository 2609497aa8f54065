#include "actionlanguage/runtime/linkedvariable.h"

#include "statechart/text/format.h"

#include <stdexcept>

LinkedVariable::LinkedVariable(std::string id, DataType type)
    : m_id(std::move(id)), m_storage(makeStorage(type))
{}

DataType LinkedVariable::type() const
{
    return static_cast<DataType>(m_storage.index() + static_cast<std::size_t>(DataType::boolean));
}

LinkedVariable::Storage LinkedVariable::makeStorage(DataType type)
{
    switch (type) {
    case DataType::boolean:
        return std::make_shared<bool>();
    case DataType::character:
        return std::make_shared<char>();
    case DataType::real:
        return std::make_shared<double>();
    case DataType::integer:
        return std::make_shared<std::int32_t>();
    case DataType::integer64:
        return std::make_shared<std::int64_t>();
    case DataType::string:
        return std::make_shared<std::string>();
    case DataType::unsigned64:
        return std::make_shared<std::uint64_t>();
    case DataType::unknown:
    case DataType::none:
        break;
    }
    throw std::runtime_error(formatText("a variable cannot be of type '{}'", typeName(type)));
}
