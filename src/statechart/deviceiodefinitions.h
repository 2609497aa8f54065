#ifndef DEVICEIODEFINITIONS_H
#define DEVICEIODEFINITIONS_H

#include "halvwidgetsexport.h"
#include "statechart/deviceenumerations.h"
#include "statechart/devicevalues.h"

/// A pin or a bus of a linked device.
class HALVWIDGETS_EXPORT AbstractIODefinition
{
public:
    enum Type : int
    {
        pin = 0,
        bus = 1,
    };

    virtual ~AbstractIODefinition();

    /// One of Type.
    virtual int type() const = 0;

protected:
    AbstractIODefinition() = default;
    AbstractIODefinition(const AbstractIODefinition&) = default;
    AbstractIODefinition& operator=(const AbstractIODefinition&) = default;
};

/// Some lines that carry a number together.
class HALVWIDGETS_EXPORT AbstractBusDefinition : public AbstractIODefinition
{
public:
    int type() const override;

    BusDataType dataType;
    BusEncoding encoding;
    std::uint32_t width; ///< in bits

protected:
    AbstractBusDefinition(BusDataType busDataType, BusEncoding busEncoding, std::uint32_t busWidth);
};

/// One line.
class HALVWIDGETS_EXPORT AbstractPinDefinition : public AbstractIODefinition
{
public:
    int type() const override;

protected:
    AbstractPinDefinition() = default;
};

/// A bus that is driven from outside.
class HALVWIDGETS_EXPORT InputBusDefinition : public AbstractBusDefinition
{
public:
    InputBusDefinition(BusDataType busDataType, BusEncoding busEncoding, std::uint32_t busWidth);
};

/// A pin that is driven from outside.
class HALVWIDGETS_EXPORT InputPinDefinition : public AbstractPinDefinition
{};

/// A bus that the device drives.
class HALVWIDGETS_EXPORT OutputBusDefinition : public AbstractBusDefinition
{
public:
    /// A signed bus.
    OutputBusDefinition(std::int64_t initialValue, BusEncoding busEncoding, std::uint32_t busWidth);

    /// An unsigned one.
    OutputBusDefinition(std::uint64_t initialValue, std::uint32_t busWidth);

    BusValue initial; ///< its index is 0 for a signed bus, 1 for an unsigned one
};

/// A pin that the device drives.
class HALVWIDGETS_EXPORT OutputPinDefinition : public AbstractPinDefinition
{
public:
    explicit OutputPinDefinition(PinInitialValue initialValue);

    PinInitialValue initial;
};

#endif
