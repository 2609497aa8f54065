#include "recordcase.h"

#include <QJsonDocument>
#include <stdexcept>

namespace recordcases {

QJsonArray samplesOf(const QByteArray& text)
{
    const QJsonArray samples = QJsonDocument::fromJson('[' + text + ']').array();
    if (samples.isEmpty())
        throw std::invalid_argument("no JSON values: " + text.toStdString());
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
