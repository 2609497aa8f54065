#ifndef SARIFLOG_H
#define SARIFLOG_H

#include <QJsonArray>
#include <string>

struct Finding;

/// Gathers findings into one log in the Static Analysis Results Interchange Format, version 2.1.0
/// (OASIS Standard, 2020), which code review tools and editors read. The rules of the log are the kinds of
/// findings; columns count characters, and the place in bytes stands beside them.
class SarifLog
{
public:
    void add(const std::string& file, const Finding& finding);

    /// A definition that could not be checked, in the words of the error. The run is no success then.
    void addFailure(const std::string& error);

    /// The whole log as one line of JSON and a line end.
    std::string text() const;

private:
    QJsonArray m_results;
    QJsonArray m_failures;
};

#endif
