#pragma once

#include "common_ui_qt_export.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <string>

namespace zelmar {

/// The part of the application's settings that this library needs: byte arrays stored under byte-string keys.
///
/// By default the values are stored with `QSettings` under the organisation and application name of the running
/// `QApplication`, and survive a restart of the program. If no organisation is set, the application name replaces it.
/// An application that stores its settings elsewhere sets a store of its own before it creates the first dialog:
///
///     // OurStore derives from zelmar::ApplicationSettings::Store
///     zelmar::ApplicationSettings::getInstance().setStore(std::make_unique<OurStore>());
///
/// Every byte string is a distinct key, including the empty string, keys with '/', keys that are not valid UTF-8, and
/// keys that differ only in case. GUI thread only.
class COMMON_UI_QT_EXPORT ApplicationSettings
{
public:
    /// The interface of the storage behind the settings. Implementations report errors through Qt's message logger and
    /// do not throw.
    class COMMON_UI_QT_EXPORT Store
    {
    public:
        virtual ~Store();
        /// Returns the value last stored under `key`, or an empty array if there is none.
        virtual QByteArray value(const std::string& key) const = 0;
        /// Stores `value` under `key` and replaces an earlier value.
        virtual void setValue(const std::string& key, const QByteArray& value) = 0;
    };

    /// A store that keeps the values in memory until it is destroyed, for tests and for programs without a home
    /// directory.
    class COMMON_UI_QT_EXPORT MemoryStore : public Store
    {
    public:
        QByteArray value(const std::string& key) const override;
        void setValue(const std::string& key, const QByteArray& value) override;

    private:
        std::map<std::string, QByteArray> m_values;
    };

    /// Returns the instance of the process, which the first call creates.
    static ApplicationSettings& getInstance();

    /// Returns the value stored under `key`, or an empty array if there is none.
    QByteArray getByteArrayValue(const std::string& key) const;

    /// Stores `value` under `key` and replaces an earlier value. The default store writes it to the settings file
    /// before this function returns. If that file cannot be read or written, the default store logs a warning through
    /// Qt's message logger, and the value may be lost.
    void depositValue(const std::string& key, const QByteArray& value);

    /// Replaces the current store by `store` and returns the replaced one. Null restores the default store. Values are
    /// not copied between the stores.
    std::unique_ptr<Store> setStore(std::unique_ptr<Store> store);

private:
    ApplicationSettings();
    ~ApplicationSettings();
    Q_DISABLE_COPY(ApplicationSettings)

    std::unique_ptr<Store> m_store;
};

} // namespace zelmar
