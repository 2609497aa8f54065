#include "shelltester.h"

#include "support/smalldefinition.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

class SarifLog : public ShellTester
{
protected:
    /// The one run of the log of these definitions.
    QJsonObject runOf(std::vector<std::string> words, int exitCode)
    {
        words.insert(words.begin(), {"check", "--sarif"});
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, exitCode);
        const QJsonObject log = QJsonDocument::fromJson(QByteArray::fromStdString(result.output)).object();
        EXPECT_EQ(log[QLatin1String("version")], QStringLiteral("2.1.0"));
        const QJsonArray runs = log[QLatin1String("runs")].toArray();
        EXPECT_EQ(runs.size(), 1);
        return runs[0].toObject();
    }

    static QJsonObject invocationOf(const QJsonObject& run)
    {
        return run[QLatin1String("invocations")].toArray().first().toObject();
    }

    static QJsonArray resultsOf(const QJsonObject& run) { return run[QLatin1String("results")].toArray(); }

    static QJsonObject placeOf(const QJsonValue& result)
    {
        return result[QLatin1String("locations")][0][QLatin1String("physicalLocation")].toObject();
    }

    void writeDefinition(const std::string& name, const std::string& action)
    {
        folder.write(name, "{\"states\": {\"a\": {\"type\": \"atomic\",\n \"onEntry\": " + action +
                               "}},\n\"start\": \"a\", \"outputs\": {}, \"outputDelay\": 1}");
    }
};

} // namespace

TEST_F(SarifLog, IsWholeWhenThereIsNothingToSay)
{
    folder.write("d.json", smallDefinition);
    const QJsonObject run = runOf({"d.json"}, 0);
    EXPECT_TRUE(run[QLatin1String("results")].isArray());
    EXPECT_EQ(resultsOf(run).size(), 0);
    EXPECT_EQ(run[QLatin1String("tool")][QLatin1String("driver")][QLatin1String("name")],
              QStringLiteral("halvorin"));
}

TEST_F(SarifLog, HasARuleForEachResult)
{
    writeDefinition("d.json", R"("int z; x;")");
    writeDefinition("e.json", R"("int z;")");
    const QJsonObject run = runOf({"d.json", "e.json"}, 1);
    const QJsonArray rules =
        run[QLatin1String("tool")][QLatin1String("driver")][QLatin1String("rules")].toArray();
    const QJsonArray results = resultsOf(run);
    ASSERT_EQ(results.size(), 2);
    EXPECT_EQ(results[0][QLatin1String("ruleId")], QStringLiteral("invalid-action"));
    EXPECT_EQ(results[0][QLatin1String("level")], QStringLiteral("error"));
    EXPECT_EQ(results[1][QLatin1String("ruleId")], QStringLiteral("unassigned-variable"));
    EXPECT_EQ(results[1][QLatin1String("level")], QStringLiteral("warning"));
    for (const QJsonValue& result : results) {
        const int index = result[QLatin1String("ruleIndex")].toInt();
        EXPECT_EQ(rules[index][QLatin1String("id")], result[QLatin1String("ruleId")]);
    }
}

TEST_F(SarifLog, PlacesAResultInCharactersAndInBytes)
{
    writeDefinition("d.json", "\"print(\\\"\xc3\xa9\\\"); xy;\"");
    const QJsonArray results = resultsOf(runOf({"d.json"}, 1));
    ASSERT_EQ(results.size(), 1);
    EXPECT_EQ(results[0][QLatin1String("message")][QLatin1String("text")],
              QStringLiteral("'xy': undeclared identifier"));
    const QJsonValue region = placeOf(results[0])[QLatin1String("region")];
    EXPECT_EQ(region[QLatin1String("startLine")].toInt(), 2);
    EXPECT_EQ(region[QLatin1String("startColumn")].toInt(), 28);
    EXPECT_EQ(region[QLatin1String("endColumn")].toInt(), 30);
    EXPECT_EQ(region[QLatin1String("byteOffset")].toInt(), 64);
    EXPECT_EQ(region[QLatin1String("byteLength")].toInt(), 2);
    EXPECT_EQ(results[0][QLatin1String("locations")][0][QLatin1String("logicalLocations")][0]
                     [QLatin1String("fullyQualifiedName")],
              QStringLiteral("states[\"a\"].onEntry"));
}

TEST_F(SarifLog, NamesFilesAsUriReferences)
{
    writeDefinition("a b#\xc3\xa9.json", "\"x;\"");
    const QJsonArray results = resultsOf(runOf({"a b#\xc3\xa9.json"}, 1));
    ASSERT_EQ(results.size(), 1);
    const QJsonValue file = placeOf(results[0])[QLatin1String("artifactLocation")];
    EXPECT_EQ(file[QLatin1String("uri")], QStringLiteral("a%20b%23%C3%A9.json"));
}

TEST_F(SarifLog, NamesFilesByTheirBytes)
{
    writeDefinition("a\xff.json", "\"x;\"");
    const std::string absolute = (folder.path() / "a\xff.json").native();
    const QJsonArray results = resultsOf(runOf({"a\xff.json", absolute}, 1));
    ASSERT_EQ(results.size(), 2);
    const auto uriOf = [](const QJsonValue& result) {
        const QJsonValue file = placeOf(result)[QLatin1String("artifactLocation")];
        return file[QLatin1String("uri")].toString();
    };
    EXPECT_EQ(uriOf(results[0]), QStringLiteral("a%FF.json"));
    EXPECT_TRUE(uriOf(results[1]).startsWith(QStringLiteral("file:///")));
    EXPECT_TRUE(uriOf(results[1]).endsWith(QStringLiteral("/a%FF.json")));
}

TEST_F(SarifLog, TellsThatEverythingWasChecked)
{
    writeDefinition("d.json", "\"x;\"");
    const QJsonObject invocation = invocationOf(runOf({"d.json"}, 1));
    EXPECT_EQ(invocation[QLatin1String("executionSuccessful")], QJsonValue(true));
    EXPECT_FALSE(invocation.contains(QLatin1String("toolExecutionNotifications")));
}

TEST_F(SarifLog, TellsWhatCouldNotBeChecked)
{
    writeDefinition("d.json", "\"x;\"");
    const QJsonObject run = runOf({"missing.json", "d.json", "."}, 1);
    EXPECT_EQ(resultsOf(run).size(), 1);
    const QJsonObject invocation = invocationOf(run);
    EXPECT_EQ(invocation[QLatin1String("executionSuccessful")], QJsonValue(false));
    const QJsonArray told = invocation[QLatin1String("toolExecutionNotifications")].toArray();
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[0][QLatin1String("level")], QStringLiteral("error"));
    EXPECT_EQ(told[0][QLatin1String("message")][QLatin1String("text")],
              QStringLiteral("the file does not exist: 'missing.json'"));
    EXPECT_EQ(told[1][QLatin1String("message")][QLatin1String("text")],
              QStringLiteral("it is a folder: '.'"));
}
