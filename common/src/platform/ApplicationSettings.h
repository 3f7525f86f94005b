#pragma once

#include "common_ui_qt_export.h"

#include <QByteArray>

#include <map>
#include <memory>
#include <string>

namespace zelmar {

/// The application's settings, as far as this library needs them: byte arrays kept under byte-string keys.
///
/// Values are kept with `QSettings` under the organisation and application name of the running `QApplication` (where
/// no organisation is set, the application name stands for it too), so they survive a restart of the program. An
/// application that keeps its settings elsewhere puts a store of its own in place, before the first dialog is made:
///
///     class OurStore : public zelmar::ApplicationSettings::Store { ... };
///     zelmar::ApplicationSettings::getInstance().setStore(std::make_unique<OurStore>());
///
/// Every byte string is a key of its own: the empty one, keys with '/', with bytes that are no text, and keys that
/// differ only in case. GUI thread only.
class COMMON_UI_QT_EXPORT ApplicationSettings
{
public:
    /// Where the values are. Implementations report trouble through Qt's message logger and do not throw for it.
    class COMMON_UI_QT_EXPORT Store
    {
    public:
        virtual ~Store();
        /// The value last set under `key`; an empty array when there is none.
        virtual QByteArray value(const std::string& key) const = 0;
        virtual void setValue(const std::string& key, const QByteArray& value) = 0;
    };

    /// Keeps the values in memory, for as long as the store lives: for tests and for programs without a home.
    class COMMON_UI_QT_EXPORT MemoryStore : public Store
    {
    public:
        QByteArray value(const std::string& key) const override;
        void setValue(const std::string& key, const QByteArray& value) override;

    private:
        std::map<std::string, QByteArray> m_values;
    };

    /// The one instance of the process, made at the first call.
    static ApplicationSettings& getInstance();

    /// The value kept under `key`; an empty array when nothing is.
    QByteArray getByteArrayValue(const std::string& key) const;

    /// Keeps `value` under `key` in place of what was there. The default store has written it when this returns. A
    /// settings file that cannot be read or written is a warning on Qt's message logger, and the value may be lost.
    void depositValue(const std::string& key, const QByteArray& value);

    /// Puts `store` in place of the current one and returns the current one; null brings the default store back.
    /// Values are not carried over.
    std::unique_ptr<Store> setStore(std::unique_ptr<Store> store);

private:
    ApplicationSettings();
    ~ApplicationSettings();
    Q_DISABLE_COPY(ApplicationSettings)

    std::unique_ptr<Store> m_store;
};

} // namespace zelmar
