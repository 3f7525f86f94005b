#include "platform/installTranslations.h"

#include "TestHome.h"

#include "ui/qt/dialogs/DefaultSaveFileMessageHandler.h"
#include "ui/qt/dialogs/TranslatedSaveFileMessageHandler.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamReader>

using zelmar::installTranslations;

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("common_ui_qt", text);
}

QString notAFolder()
{
    return translated("%1 is not a folder.");
}

QStringList languages()
{
    return QStringLiteral(LANGUAGES).split(QLatin1Char(' '));
}

/// Returns the texts of the template that translators start from.
QStringList templateTexts()
{
    QFile file(QStringLiteral(TEMPLATE));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList texts;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNextStartElement() && reader.name() == QLatin1String("source"))
            texts += reader.readElementText();
    }
    return texts;
}

/// An application's own translation of one text.
class OwnTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return qstrcmp(context, "common_ui_qt") == 0 && qstrcmp(text, "%1 is not a folder.") == 0
                   ? QStringLiteral("Kein Verzeichnis: %1")
                   : QString();
    }
};

} // namespace

class tst_installTranslations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { installTranslations(QLocale::c()); }

    void translatesEveryText_data();
    void translatesEveryText();
    void takesTheLanguage_data();
    void takesTheLanguage();
    void staysEnglishInOtherLanguages();
    void replacesTheFormerLanguage();
    void letsTheApplicationTranslate();
    void translatesQuestions();
    void asksInEnglishAsTheDefaultHandlerDoes();
};

void tst_installTranslations::translatesEveryText_data()
{
    QTest::addColumn<QString>("language");
    for (const QString& language : languages())
        QTest::newRow(qPrintable(language)) << language;
}

void tst_installTranslations::translatesEveryText()
{
    QFETCH(QString, language);
    QVERIFY(installTranslations(QLocale(language)));
    const QStringList texts = templateTexts();
    QVERIFY(texts.size() > 10);
    for (const QString& text : texts) {
        const QString translation = translated(text.toUtf8().constData());
        QVERIFY2(translation != text, qPrintable(text));
        for (const QString& placeholder : {QStringLiteral("%1"), QStringLiteral("%2")})
            QVERIFY2(translation.count(placeholder) == text.count(placeholder), qPrintable(translation));
    }
}

void tst_installTranslations::takesTheLanguage_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("German") << "de"
                            << "%1 ist kein Ordner.";
    QTest::newRow("Austrian German") << "de_AT"
                                     << "%1 ist kein Ordner.";
    QTest::newRow("Canadian French") << "fr_CA" << QStringLiteral(u"%1 n\u2019est pas un dossier.");
    QTest::newRow("Mexican Spanish") << "es_MX"
                                     << "%1 no es una carpeta.";
    QTest::newRow("Polish") << "pl_PL"
                            << "%1 nie jest folderem.";
    QTest::newRow("Simplified Chinese") << "zh_CN" << QStringLiteral(u"%1 \u4e0d\u662f\u6587\u4ef6\u5939\u3002");
}

void tst_installTranslations::takesTheLanguage()
{
    QFETCH(QString, locale);
    QFETCH(QString, text);
    QVERIFY(installTranslations(QLocale(locale)));
    QCOMPARE(notAFolder(), text);
}

void tst_installTranslations::staysEnglishInOtherLanguages()
{
    QVERIFY(installTranslations(QLocale(QStringLiteral("de"))));
    QVERIFY(!installTranslations(QLocale(QStringLiteral("it"))));
    QCOMPARE(notAFolder(), QStringLiteral("%1 is not a folder."));
    QVERIFY(!installTranslations(QLocale(QStringLiteral("zh_TW")))); // is written in other characters
    QVERIFY(installTranslations(QLocale(QStringLiteral("en_GB"))));
    QCOMPARE(notAFolder(), QStringLiteral("%1 is not a folder."));
}

void tst_installTranslations::replacesTheFormerLanguage()
{
    for (int round = 0; round < 2; ++round) {
        QVERIFY(installTranslations(QLocale(QStringLiteral("de"))));
        QVERIFY(installTranslations(QLocale(QStringLiteral("pl"))));
        QCOMPARE(notAFolder(), QStringLiteral("%1 nie jest folderem."));
        QCOMPARE(QCoreApplication::instance()->findChildren<QTranslator*>().size(), 1);
        QVERIFY(installTranslations(QLocale::c()));
        QCOMPARE(notAFolder(), QStringLiteral("%1 is not a folder."));
        QCOMPARE(QCoreApplication::instance()->findChildren<QTranslator*>().size(), 0);
    }
}

void tst_installTranslations::letsTheApplicationTranslate()
{
    QVERIFY(installTranslations(QLocale(QStringLiteral("de"))));
    OwnTranslator own;
    QVERIFY(QCoreApplication::installTranslator(&own));
    QCOMPARE(notAFolder(), QStringLiteral("Kein Verzeichnis: %1"));
    QCOMPARE(translated("The folder %1 does not exist."), QStringLiteral("Den Ordner %1 gibt es nicht."));
}

void tst_installTranslations::translatesQuestions()
{
    QVERIFY(installTranslations(QLocale(QStringLiteral("de"))));
    zelmar::TranslatedSaveFileMessageHandler handler;
    QCOMPARE(handler.filenameToCheck("/tmp/%1 a.dat"), std::string("/tmp/%1 a.dat"));
    QCOMPARE(QString::fromStdString(handler.okToOverwriteMessage()),
             QStringLiteral(u"Die Datei /tmp/%1 a.dat gibt es bereits. M\u00f6chten Sie sie ersetzen?"));
    QVERIFY(handler.unableToOverwriteMessage().find("/tmp/%1 a.dat") != std::string::npos);
    QCOMPARE(QString::fromStdString(handler.systemAccessError("%1 gone")),
             QStringLiteral(u"Auf die Datei /tmp/%1 a.dat kann nicht zugegriffen werden: %1 gone. M\u00f6chten Sie es "
                            "noch einmal versuchen und einen anderen Ort w\u00e4hlen?"));
}

void tst_installTranslations::asksInEnglishAsTheDefaultHandlerDoes()
{
    zelmar::DefaultSaveFileMessageHandler plain;
    zelmar::TranslatedSaveFileMessageHandler handler;
    const std::string name = u8"/data/<b>M\u00e4rz</b> %1 %2.dat";
    QCOMPARE(handler.filenameToCheck(name), plain.filenameToCheck(name));
    QCOMPARE(handler.okToOverwriteMessage(), plain.okToOverwriteMessage());
    QCOMPARE(handler.unableToOverwriteMessage(), plain.unableToOverwriteMessage());
    QCOMPARE(handler.systemAccessError("disk %2 gone"), plain.systemAccessError("disk %2 gone"));
}

CORE_TEST_MAIN(tst_installTranslations)
#include "tst_installTranslations.moc"
