#ifndef LSPREQUESTMONITOR_H
#define LSPREQUESTMONITOR_H

#include "languageclient/lspabstractrequestmonitor.h"
#include "languageclient/requestresult.h"

#include <stdexcept>

namespace Halvorin::LSP {

/// A monitor that knows what the answer holds: one type, or one of several. std::monostate among several
/// stands for nothing.
template <class... Results>
class LSPRequestMonitor : public LSPAbstractRequestMonitor
{
public:
    using LSPAbstractRequestMonitor::LSPAbstractRequestMonitor;
    using Result = RequestResult<Results...>;

    /// The result of the answer. Raises LSPRequestException when the answer is an error, and
    /// std::runtime_error with "null response" when it has no result, or there is no answer yet, and with
    /// "invalid conversion" when it has one of another type.
    virtual Result result() const
    {
        if (!response())
            throw std::runtime_error("null response");
        return readResult<Results...>(*response());
    }
};

} // namespace Halvorin::LSP

#endif
