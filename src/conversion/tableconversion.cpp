#include "conversion/core/expression.h"
#include "conversion/rstconversionlibrary.h"
#include "conversion/rstgridtable.h"
#include "conversion/simpletable.h"

namespace Halvorin::Text {

QString RSTConversionLibrary::convertGridTable(const Captures& table) const
{
    return detail::RSTGridTable(table.whole(), table.group(0)).toHTML(*this);
}

QString RSTConversionLibrary::convertSimpleTable(const Captures& table) const
{
    return simpleTableToHtml(*this, table.group(0), table.group(1), table.group(2));
}

} // namespace Halvorin::Text
