#include "HostSupport/optionstore.h"

#include "HalvCore/application.h"
#include "HalvCore/exception.h"
#include "HostSupport/registry.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <exception>
#include <map>

using Halvorin::System::Exception;
using Halvorin::System::FilePath;

namespace HostSupport {

namespace {

QString qString(const std::string& text)
{
    return QString::fromStdString(text);
}

QString fileName(const FilePath& path)
{
    const std::string bytes = path.toString().toLegacyUtf8();
    QString name = QFile::decodeName(QByteArray::fromStdString(bytes));
    if (QFile::encodeName(name).toStdString() != bytes)
        throw Exception("the name of the options file '" + bytes + "' is not valid text");
    return name;
}

/// Whether every line is a section, an option or a comment. The reader behind takes any bytes, reads what it
/// can, and would write the file back without the rest.
bool readsAsOptions(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        return !file.exists();
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const bool isComment = line.isEmpty() || line.startsWith(';') || line.startsWith('#');
        const bool isSection = line.startsWith('[') && line.endsWith(']');
        if (line.contains('\0') || (!isComment && !isSection && !line.contains('=')))
            return false;
    }
    return true;
}

std::unique_ptr<QSettings> opened(const FilePath& path)
{
    const QString name = fileName(path);
    const QFileInfo file(name);
    if (file.exists() && (!file.isFile() || !file.isReadable()))
        throw Exception("cannot read the options file '" + path.toString().toLegacyUtf8() + "'");
    auto settings = std::make_unique<QSettings>(name, QSettings::IniFormat);
    settings->setIniCodec("UTF-8");
    if (settings->status() != QSettings::NoError || !readsAsOptions(name))
        throw Exception("the file '" + path.toString().toLegacyUtf8() + "' holds no options");
    return settings;
}

} // namespace

struct OptionStore::State
{
    std::map<std::string, std::string> thisRun;
    FilePath path;
    std::unique_ptr<QSettings> file;

    bool isUnreadable = false;

    /// The user's own file is opened when it is first needed: static objects must not touch it. Null, after
    /// a warning, when it cannot be read: every option then has its default.
    QSettings* openFile()
    {
        if (file || isUnreadable)
            return file.get();
        path = OptionStore::defaultFile();
        try {
            file = opened(path);
        } catch (const std::exception& error) {
            isUnreadable = true;
            Halvorin::System::Application::instance().logger().warning(
                "settings", std::string(error.what()) + "; options have their defaults");
        }
        return file.get();
    }
};

OptionStore::OptionStore() : m_state(std::make_unique<State>()) {}

OptionStore::~OptionStore() = default;

OptionStore& OptionStore::instance()
{
    static OptionStore store;
    return store;
}

FilePath OptionStore::defaultFile()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    FilePath path(QFile::encodeName(folder).toStdString());
    path /= "halvorin/halvorin.ini";
    return path;
}

void OptionStore::useFile(const FilePath& path)
{
    m_state->file = opened(path);
    m_state->path = path;
}

void OptionStore::setForThisRun(const std::string& name, std::string value)
{
    m_state->thisRun[name] = std::move(value);
}

void OptionStore::forgetThisRun()
{
    m_state->thisRun.clear();
}

std::optional<std::string> OptionStore::stored(const std::string& name) const
{
    if (const auto found = m_state->thisRun.find(name); found != m_state->thisRun.end())
        return found->second;
    const QSettings* file = m_state->openFile();
    const QVariant value = file ? file->value(qString(name)) : QVariant();
    if (!value.isValid())
        return std::nullopt;
    // Somebody who edits the file need not know that a comma without quotes makes a list.
    return value.type() == QVariant::StringList ? value.toStringList().join(QLatin1String(", ")).toStdString()
                                                : value.toString().toStdString();
}

std::optional<std::string> OptionStore::value(const std::string& name) const
{
    if (auto found = stored(name))
        return found;
    const OptionRegistration* option = Registry::instance().options().find(name);
    return option ? std::optional(option->defaultText) : std::nullopt;
}

bool OptionStore::write(const std::string& name, const std::string& value)
{
    const auto before = this->value(name);
    m_state->thisRun.erase(name);
    QSettings* file = m_state->openFile();
    if (file) {
        file->setValue(qString(name), qString(value));
        file->sync();
    }
    const bool written = file && file->status() == QSettings::NoError;
    if (!written) {
        m_state->thisRun[name] = value;
        Halvorin::System::Application::instance().logger().warning(
            "settings", "cannot write options to '" + m_state->path.toString().toLegacyUtf8() + "'");
    }
    if (before != value)
        Registry::instance().optionChanged(name, value);
    return written;
}

} // namespace HostSupport
