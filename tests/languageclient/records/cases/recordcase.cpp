#include "recordcase.h"

#include <QJsonDocument>
#include <stdexcept>

namespace recordcases {

QJsonArray Field::samples() const
{
    const QJsonArray samples = QJsonDocument::fromJson(QByteArray("[") + texts + ']').array();
    if (samples.isEmpty())
        throw std::invalid_argument(std::string("no JSON values: ") + texts);
    return samples;
}

const std::vector<RecordCase>& allRecords()
{
    static const std::vector<RecordCase> records = [] {
        std::vector<RecordCase> all;
        for (const auto& family : {documentRecords(),
                                   lifecycleRecords(),
                                   languageRecords(),
                                   completionRecords(),
                                   capabilityRecords()})
            all.insert(all.end(), family.begin(), family.end());
        return all;
    }();
    return records;
}

} // namespace recordcases
