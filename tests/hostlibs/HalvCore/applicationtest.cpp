#include "HalvCore/application.h"

using namespace Halvorin::System;

namespace {

class PartData : public ObjectData
{
public:
    explicit PartData(int initial, bool* destroyed) : value(initial), m_destroyed(destroyed) {}
    ~PartData() override { *m_destroyed = true; }

    int value;

private:
    bool* m_destroyed;
};

class Part : public Object
{
public:
    Part(int value, bool* destroyed) : Object(std::make_unique<PartData>(value, destroyed)) {}

    int value() const { return static_cast<const PartData&>(_data()).value; }
};

class Lines
{
public:
    explicit Lines(ApplicationLogger& logger) : m_logger(logger), m_level(logger.level())
    {
        m_logger.setOutput([this](std::string_view line) { m_text += line; });
    }
    ~Lines()
    {
        m_logger.setOutput({});
        m_logger.setLevel(m_level);
    }

    std::string taken() { return std::exchange(m_text, {}); }

private:
    ApplicationLogger& m_logger;
    MessageSeverity m_level;
    std::string m_text;
};

} // namespace

TEST(Object, MovesAndDestroysItsData)
{
    bool destroyed = false;
    {
        Part first(7, &destroyed);
        const Part second(std::move(first));
        EXPECT_EQ(second.value(), 7);
        EXPECT_FALSE(destroyed);
    }
    EXPECT_TRUE(destroyed);
}

TEST(Application, OwnsItsEntities)
{
    auto entity =
        std::make_unique<ApplicationEntity>(std::make_unique<ApplicationEntityData>("settings library"));
    const ApplicationEntity* address = entity.get();
    const ApplicationEntity& owned = Application::instance().addSystemEntity(std::move(entity));
    EXPECT_EQ(&owned, address);
    EXPECT_EQ(owned.name(), String("settings library"));
}

TEST(Application, DoesNotLogScriptCallsUntilItIsTold)
{
    ApplicationSettings& settings = Application::instance().settings();
    EXPECT_FALSE(settings.logScriptCalls());
    settings.setLogScriptCalls(true);
    EXPECT_TRUE(Application::instance().settings().logScriptCalls());
    settings.setLogScriptCalls(false);
}

TEST(ApplicationLogger, WritesLevelChannelAndMessage)
{
    ApplicationLogger& logger = Application::instance().logger();
    Lines lines(logger);
    logger.warning("python", "narrow");
    logger.error(String("lsp"), String("string"));
    logger.error(StringView(u8"lsp"), StringView(u8"view"));
    logger.warning(ErrorCode(FileError::notFound));
    EXPECT_EQ(lines.taken(), "warning: python: narrow\n"
                             "error: lsp: string\n"
                             "error: lsp: view\n"
                             "warning: error: the file does not exist\n");
}

TEST(ApplicationLogger, DropsWhatIsBelowItsLevel)
{
    ApplicationLogger& logger = Application::instance().logger();
    Lines lines(logger);
    logger.info("a", "dropped");
    logger.diagnostic("a", "dropped");
    EXPECT_EQ(lines.taken(), "");
    logger.setLevel(MessageSeverity::diagnostic);
    logger.info("a", "b");
    logger.diagnostic("a", "b");
    EXPECT_EQ(lines.taken(), "info: a: b\ndiagnostic: a: b\n");
    logger.setLevel(MessageSeverity::error);
    logger.warning("a", "dropped");
    EXPECT_EQ(lines.taken(), "");
}
