#include <QCoreApplication>
#include <gtest/gtest.h>
#include <memory>

namespace {

/// Stands while the tests of the program run, as in any program of Qt's.
class ApplicationEnvironment : public testing::Environment
{
public:
    void SetUp() override
    {
        m_application = std::make_unique<QCoreApplication>(m_argumentCount, m_arguments);
    }
    void TearDown() override { m_application.reset(); }

private:
    int m_argumentCount = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

[[maybe_unused]] const testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

} // namespace
