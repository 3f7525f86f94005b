#include "platform/ApplicationSettings.h"

#include <QCoreApplication>
#include <QSettings>

#include <utility>

namespace zelmar {

namespace {

/// Returns a QSettings key that is different for every byte string. QSettings rejects empty keys, treats '/' as a
/// separator, and some of its back ends ignore case. Therefore lower-case letters, digits and '-' are kept, and every
/// other byte is escaped as '_' with two hexadecimal digits.
QString settingsName(const std::string& key)
{
    QString name = QStringLiteral("common_ui_qt/value-");
    for (const char byte : key) {
        const bool isKept = (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') || byte == '-';
        if (isKept)
            name += QLatin1Char(byte);
        else
            name += QStringLiteral("_%1").arg(static_cast<unsigned char>(byte), 2, 16, QLatin1Char('0'));
    }
    return name;
}

/// A QSettings object of the running application. Its destructor writes pending changes and logs a warning if the file
/// could not be accessed or is damaged.
class CheckedSettings
{
public:
    CheckedSettings() = default;
    Q_DISABLE_COPY(CheckedSettings)
    ~CheckedSettings()
    {
        m_settings.sync();
        if (m_settings.status() == QSettings::AccessError)
            qWarning("Cannot read or write the settings file %s", qPrintable(m_settings.fileName()));
        else if (m_settings.status() == QSettings::FormatError)
            qWarning("The settings file %s is damaged", qPrintable(m_settings.fileName()));
    }
    QSettings* operator->() { return &m_settings; }

private:
    static QString organization()
    {
        const QString name = QCoreApplication::organizationName();
        return name.isEmpty() ? QCoreApplication::applicationName() : name;
    }

    QSettings m_settings{organization(), QCoreApplication::applicationName()};
};

/// The default store. It opens QSettings for each access, so that it sees changes of other processes with the same
/// application name.
class SettingsFileStore : public ApplicationSettings::Store
{
public:
    QByteArray value(const std::string& key) const override
    {
        return CheckedSettings()->value(settingsName(key)).toByteArray();
    }

    void setValue(const std::string& key, const QByteArray& value) override
    {
        CheckedSettings settings;
        const QString name = settingsName(key);
        if (!settings->contains(name) || settings->value(name).toByteArray() != value)
            settings->setValue(name, value);
    }
};

} // namespace

ApplicationSettings::Store::~Store() = default;

QByteArray ApplicationSettings::MemoryStore::value(const std::string& key) const
{
    const auto found = m_values.find(key);
    return found == m_values.end() ? QByteArray() : found->second;
}

void ApplicationSettings::MemoryStore::setValue(const std::string& key, const QByteArray& value)
{
    m_values[key] = value;
}

ApplicationSettings& ApplicationSettings::getInstance()
{
    static ApplicationSettings instance;
    return instance;
}

ApplicationSettings::ApplicationSettings()
    : m_store(std::make_unique<SettingsFileStore>())
{
}

ApplicationSettings::~ApplicationSettings() = default;

QByteArray ApplicationSettings::getByteArrayValue(const std::string& key) const
{
    return m_store->value(key);
}

void ApplicationSettings::depositValue(const std::string& key, const QByteArray& value)
{
    m_store->setValue(key, value);
}

std::unique_ptr<ApplicationSettings::Store> ApplicationSettings::setStore(std::unique_ptr<Store> store)
{
    if (!store)
        store = std::make_unique<SettingsFileStore>();
    return std::exchange(m_store, std::move(store));
}

} // namespace zelmar
