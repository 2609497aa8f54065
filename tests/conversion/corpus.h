#ifndef CORPUS_H
#define CORPUS_H

#include "support/process.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QString>
#include <gtest/gtest.h>
#include <vector>

/// Every docstring of Python's standard library and of numpy, as tests/conversion/docstrings.py finds them.
inline std::vector<QString> readCorpus(const std::string& script)
{
    const ProcessResult result = runProcess({script});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    std::vector<QString> docstrings;
    for (const QByteArray& line : QByteArray::fromStdString(result.output).split('\n'))
        if (!line.isEmpty())
            docstrings.push_back(QJsonDocument::fromJson('[' + line + ']').array().at(0).toString());
    EXPECT_GT(docstrings.size(), 15'000U);
    return docstrings;
}

#endif
