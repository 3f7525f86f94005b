#include "ui/qt/dialogs/qtdialog/mnemonics_p.h"

#include "platform/HelpLauncher.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"

#include "DialogDriver.h"
#include "DrawnDialogs.h"
#include "FileDialogActions.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>
#include <vector>

using zelmar::HelpLauncher;
using namespace zelmar::internal;

namespace {

using Keys = QSet<QKeySequence>;

/// Returns the texts of all visible labels and buttons that share a mnemonic with another one.
QStringList clashes(QFileDialog& dialog)
{
    QMultiMap<QString, QString> textOf;
    const auto add = [&textOf](const QWidget& widget, const QString& text) {
        const QKeySequence mnemonic = QKeySequence::mnemonic(text);
        if (widget.isVisible() && !mnemonic.isEmpty())
            textOf.insert(mnemonic.toString(), text);
    };
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        add(*label, label->text());
    for (const QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        add(*button, button->text());
    QStringList found;
    for (const QString& mnemonic : textOf.uniqueKeys()) {
        if (textOf.count(mnemonic) > 1)
            found += textOf.values(mnemonic);
    }
    return found;
}

QPushButton* buttonOf(QFileDialog& dialog, QDialogButtonBox::ButtonRole role)
{
    const auto* box = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
    for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == role)
            return qobject_cast<QPushButton*>(button);
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(QFileDialog::DialogLabel)

class tst_mnemonics : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { HelpLauncher::getInstance().setHandler({}); }

    void withoutTaken_data();
    void withoutTaken();
    void freeLetters_data();
    void freeLetters();
    void noneTwice_data();
    void noneTwice();
    void helpGivesWayToLabels_data();
    void helpGivesWayToLabels();
    void helpGivesWayToAddedButtons();
    void addedButtonsGiveWayToOpeningFolders();
    void applicationsLabelsStay();

private:
    std::unique_ptr<DrawnDialogs> m_place;
    std::vector<std::string> m_topics;
};

void tst_mnemonics::initTestCase()
{
    HelpLauncher::getInstance().setHandler([this](const std::string& topic) { m_topics.push_back(topic); });
}

void tst_mnemonics::init()
{
    m_place = std::make_unique<DrawnDialogs>();
    m_topics.clear();
}

void tst_mnemonics::withoutTaken_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("expected"); // result when Alt+O is taken

    QTest::newRow("no mnemonic") << "Options"
                                 << "Options";
    QTest::newRow("free") << "O&ptions"
                          << "O&ptions";
    QTest::newRow("taken") << "&Options"
                           << "Options";
    QTest::newRow("taken, the other case") << "Read &only"
                                           << "Read only";
    QTest::newRow("letter of its own beside") << "A && &O"
                                              << "A && O";
    QTest::newRow("ampersand only") << "A && O"
                                    << "A && O";
    QTest::newRow("at the end") << "O&"
                                << "O&";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_mnemonics::withoutTaken()
{
    QFETCH(QString, label);
    QTEST(withoutTakenMnemonic(label, {QKeySequence(QStringLiteral("Alt+O"))}), "expected");
}

void tst_mnemonics::freeLetters_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QString>("expected");

    QTest::newRow("its own is free") << "&Help"
                                     << "OSN"
                                     << "&Help";
    QTest::newRow("none yet") << "Help"
                              << "OSN"
                              << "&Help";
    QTest::newRow("its own is taken") << "&Help"
                                      << "HN"
                                      << "H&elp";
    QTest::newRow("several are taken") << "&Help"
                                       << "HEL"
                                       << "Hel&p";
    QTest::newRow("all are taken") << "&Help"
                                   << "HELP"
                                   << "Help";
    QTest::newRow("its own is not the first") << "He&lp"
                                              << "HN"
                                              << "He&lp";
    QTest::newRow("blanks are no mnemonics") << "&A b"
                                             << "A"
                                             << "A &b";
    QTest::newRow("an ampersand that is shown") << "&A && b"
                                                << "A"
                                                << "A && &b";
    QTest::newRow("an ampersand that is shown, at the start") << "&&b"
                                                              << ""
                                                              << "&&&b";
    QTest::newRow("empty") << ""
                           << "H"
                           << "";
}

void tst_mnemonics::freeLetters()
{
    QFETCH(QString, label);
    QFETCH(QString, taken);
    Keys keys;
    for (const QChar letter : taken)
        keys.insert(QKeySequence(QStringLiteral("Alt+") + letter));
    QTEST(withAnyFreeMnemonic(label, keys), "expected");
}

void tst_mnemonics::noneTwice_data()
{
    QTest::addColumn<bool>("native");
    QTest::addColumn<QFileDialog::AcceptMode>("acceptMode");
    QTest::addColumn<QFileDialog::FileMode>("fileMode");
    QTest::addColumn<bool>("help");
    for (const bool native : {false, true}) {
        if (native && systemLimits::nativeDialogIsTheSystems)
            continue;
        const char* kind = native ? "native" : "drawn by Qt";
        for (const bool help : {false, true}) {
            const char* topic = help ? ", help" : "";
            QTest::addRow("%s, open%s", kind, topic)
                << native << QFileDialog::AcceptOpen << QFileDialog::ExistingFile << help;
            QTest::addRow("%s, open several%s", kind, topic)
                << native << QFileDialog::AcceptOpen << QFileDialog::ExistingFiles << help;
            QTest::addRow("%s, directory%s", kind, topic)
                << native << QFileDialog::AcceptOpen << QFileDialog::Directory << help;
            QTest::addRow("%s, save%s", kind, topic)
                << native << QFileDialog::AcceptSave << QFileDialog::AnyFile << help;
        }
    }
}

void tst_mnemonics::noneTwice()
{
    QFETCH(QFileDialog::AcceptMode, acceptMode);
    QFETCH(QFileDialog::FileMode, fileMode);
    QFETCH(bool, help);
    DrawnDialogs::useKindOfRow();
    ExtendedFileDialog dialog(m_place->window, "Choose", m_place->path().toStdString(), "", help ? "topic" : "",
                              acceptMode);
    dialog.setFileMode(fileMode);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk, help", [&](QFileDialog& shown) {
        QCOMPARE(clashes(shown), QStringList());
        typeName(shown, QStringLiteral("folder")); // may change the label of the accept button
        QCOMPARE(clashes(shown), QStringList());
        fileNameEdit(shown).clear();
        QTest::keyClick(&shown, Qt::Key_H, Qt::AltModifier);
        QTRY_COMPARE(m_topics, (help ? std::vector<std::string>{"topic"} : std::vector<std::string>()));
        QVERIFY(shown.isVisible());
        if (help)
            QCOMPARE(buttonOf(shown, QDialogButtonBox::HelpRole)->text(), QStringLiteral("&Help"));
        cancel(shown);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

void tst_mnemonics::helpGivesWayToLabels_data()
{
    QTest::addColumn<QFileDialog::DialogLabel>("label");
    QTest::newRow("look in") << QFileDialog::LookIn;
    QTest::newRow("name") << QFileDialog::FileName;
    QTest::newRow("type") << QFileDialog::FileType;
    QTest::newRow("accept") << QFileDialog::Accept;
    QTest::newRow("reject") << QFileDialog::Reject;
}

/// The application sets the label after the dialog was created.
void tst_mnemonics::helpGivesWayToLabels()
{
    QFETCH(QFileDialog::DialogLabel, label);
    QExtendedFileDialog dialog(m_place->window, "Choose", m_place->path().toStdString(), "", "topic",
                               QFileDialog::AcceptOpen);
    dialog.setLabelText(label, QStringLiteral("&Hand over"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk", [&](QFileDialog& shown) {
        QCOMPARE(clashes(shown), QStringList());
        QCOMPARE(shown.labelText(label), QStringLiteral("&Hand over"));
        QCOMPARE(buttonOf(shown, QDialogButtonBox::HelpRole)->text(), QStringLiteral("H&elp"));
        QTest::keyClick(&shown, Qt::Key_E, Qt::AltModifier);
        QTRY_COMPARE(m_topics, std::vector<std::string>{"topic"});
        cancel(shown);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

/// The application adds the button after the Help button.
void tst_mnemonics::helpGivesWayToAddedButtons()
{
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP("the system lays its dialog out");
    ExtendedWinFileDialog dialog(m_place->window, "Choose", m_place->path().toStdString(), "", "topic",
                                 QFileDialog::AcceptOpen, false);
    int clicks = 0;
    dialog.addCustomButton("&Histogram", [&clicks] { ++clicks; });
    DialogDriver driver;
    driver.onDialog<QFileDialog>("press", [&](QFileDialog& shown) {
        QCOMPARE(clashes(shown), QStringList());
        QCOMPARE(buttonOf(shown, QDialogButtonBox::HelpRole)->text(), QStringLiteral("H&elp"));
        QTest::keyClick(&shown, Qt::Key_H, Qt::AltModifier);
        QTRY_COMPARE(clicks, 1);
        QTest::keyClick(&shown, Qt::Key_E, Qt::AltModifier);
        QTRY_COMPARE(m_topics, std::vector<std::string>{"topic"});
        cancel(shown);
    });
    QCOMPARE(dialog.exec(), QDialog::Rejected);
}

/// The Save button becomes "Open" for the name of a folder.
void tst_mnemonics::addedButtonsGiveWayToOpeningFolders()
{
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP("the system lays its dialog out");
    ExtendedWinFileDialog dialog(m_place->window, "Choose", m_place->path().toStdString(), "", "",
                                 QFileDialog::AcceptSave, false);
    dialog.addCustomButton("&Order", [] {});
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk", [](QFileDialog& shown) {
        typeName(shown, QStringLiteral("folder"));
        QCOMPARE(buttonOf(shown, QDialogButtonBox::AcceptRole)->text(), QFileDialog::tr("&Open"));
        QCOMPARE(clashes(shown), QStringList());
        cancel(shown);
    });
    QCOMPARE(dialog.exec(), QDialog::Rejected);
}

/// The library does not resolve a clash between two labels of the application.
void tst_mnemonics::applicationsLabelsStay()
{
    if (systemLimits::nativeDialogIsTheSystems)
        QSKIP("the system lays its dialog out");
    ExtendedWinFileDialog dialog(m_place->window, "Choose", m_place->path().toStdString(), "", "topic",
                                 QFileDialog::AcceptOpen, false);
    dialog.addCustomButton("&Preview", [] {});
    dialog.addCustomButton("&Print", [] {});
    DialogDriver driver;
    driver.onDialog<QFileDialog>("walk", [](QFileDialog& shown) {
        QCOMPARE(clashes(shown).size(), 2);
        QVERIFY(clashes(shown).contains(QStringLiteral("&Preview")));
        QVERIFY(clashes(shown).contains(QStringLiteral("&Print")));
        cancel(shown);
    });
    QCOMPARE(dialog.exec(), QDialog::Rejected);
}

UI_TEST_MAIN(tst_mnemonics)
#include "tst_mnemonics.moc"
