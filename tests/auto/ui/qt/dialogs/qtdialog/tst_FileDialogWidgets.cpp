#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"

#include "DialogDriver.h"
#include "DrawnDialogs.h"
#include "FileDialogActions.h"
#include "IgnoreMessages.h"
#include "TestHome.h"

#include <QAccessible>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include <functional>
#include <memory>

using namespace zelmar::internal;

namespace {

/// Calls a function of FileDialogWidgets and returns the part that it returned.
using Look = std::function<const QObject*(const FileDialogWidgets&)>;

QByteArray warningAbout(const char* part)
{
    return QByteArray("QFileDialog of Qt ") + qVersion() + " has no " + part + ". The file dialogs work without it.";
}

/// Renames one part of each new dialog before anybody looks for it, as another version of Qt might do.
class OtherQt : public QObject
{
public:
    explicit OtherQt(const QString& part)
        : m_part(part)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (qobject_cast<QFileDialog*>(watched)) {
            for (QObject* part : watched->findChildren<QObject*>(m_part))
                part->setObjectName(QStringLiteral("renamed"));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    const QString m_part;
};

} // namespace

Q_DECLARE_METATYPE(Look)

class tst_FileDialogWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void parts_data();
    void parts();
    void missingParts_data() { parts_data(); }
    void missingParts();
    void typedFilesAreSelectedByTheCaller();
    void acceptButtonLikeQt_data();
    void acceptButtonLikeQt();
    void labelForAFolder();
    void fileTypesAreLeftToTheCaller();
    void boxesHaveLabels_data() { DrawnDialogs::addKindRows(); }
    void boxesHaveLabels();

    // The warnings were tested before, because each is given once.
    void dialogsWorkWithoutAPart_data();
    void dialogsWorkWithoutAPart();

private:
    std::unique_ptr<QFileDialog> makeDialog();

    std::unique_ptr<DrawnDialogs> m_place;
};

void tst_FileDialogWidgets::init()
{
    m_place = std::make_unique<DrawnDialogs>();
}

std::unique_ptr<QFileDialog> tst_FileDialogWidgets::makeDialog()
{
    auto dialog = std::make_unique<QFileDialog>(&m_place->window, QString(), m_place->path());
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    return dialog;
}

void tst_FileDialogWidgets::parts_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<Look>("look");
    const auto add = [](const char* name, const Look& look) { QTest::newRow(name) << QByteArray(name) << look; };
    add("fileNameEdit", [](const FileDialogWidgets& widgets) { return &widgets.fileNameEdit(); });
    add("fileTypeCombo", [](const FileDialogWidgets& widgets) { return &widgets.fileTypeCombo(); });
    add("buttonBox", [](const FileDialogWidgets& widgets) { return &widgets.buttonBox(); });
    add("qt_filesystem_model", [](const FileDialogWidgets& widgets) { return &widgets.model(); });
    add("listView", [](const FileDialogWidgets& widgets) { return widgets.selection().parent(); });
}

void tst_FileDialogWidgets::parts()
{
    QFETCH(QByteArray, name);
    QFETCH(Look, look);
    const auto dialog = makeDialog();
    QVERIFY(FileDialogWidgets::existIn(*dialog));
    const QObject* part = dialog->findChild<QObject*>(QLatin1String(name));
    QVERIFY(part);
    QCOMPARE(look(FileDialogWidgets(*dialog)), part);
}

void tst_FileDialogWidgets::missingParts()
{
    QFETCH(QByteArray, name);
    QFETCH(Look, look);
    for (const bool first : {true, false}) { // The second dialog gives no warning.
        const auto dialog = makeDialog();
        dialog->findChild<QObject*>(QLatin1String(name))->setObjectName(QStringLiteral("renamed"));
        if (first)
            QTest::ignoreMessage(QtWarningMsg, warningAbout(name).constData());
        const FileDialogWidgets widgets(*dialog);
        const QObject* standIn = look(widgets);
        QVERIFY(standIn);
        QCOMPARE(look(widgets), standIn);
        dialog->show();
        if (const auto* widget = qobject_cast<const QWidget*>(standIn))
            QVERIFY(!widget->isVisible());
    }
}

void tst_FileDialogWidgets::typedFilesAreSelectedByTheCaller()
{
    m_place->folders.addFile(QStringLiteral("new.dat"));
    const auto dialog = makeDialog();
    const FileDialogWidgets widgets(*dialog);
    QStringList asked;
    widgets.selectTypedFilesBy([&asked](const QString& text) {
        asked += text;
        return text == QStringLiteral("old.dat");
    });
    dialog->show();
    widgets.fileNameEdit().setFocus();
    QTRY_COMPARE(widgets.model().rowCount(widgets.shownFolder()), 3);
    widgets.fileNameEdit().setText(QStringLiteral("old.dat"));
    QCOMPARE(widgets.selection().selectedRows(), QModelIndexList());
    widgets.fileNameEdit().setText(QStringLiteral("new.dat"));
    QCOMPARE(widgets.selection().selectedRows().value(0).data().toString(), QStringLiteral("new.dat"));
    QCOMPARE(asked, (QStringList{QStringLiteral("old.dat"), QStringLiteral("new.dat")}));

    QTest::ignoreMessage(QtWarningMsg, warningAbout("_q_autoCompleteFileName(QString)").constData());
    widgets.selectTypedFilesBy([](const QString&) { return true; }); // QFileDialog no longer reacts to the text.
}

void tst_FileDialogWidgets::acceptButtonLikeQt_data()
{
    QTest::addColumn<QFileDialog::AcceptMode>("acceptMode");
    QTest::addColumn<QFileDialog::FileMode>("fileMode");
    QTest::addColumn<QString>("text");
    for (const auto accept : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave}) {
        for (const auto mode :
             {QFileDialog::AnyFile, QFileDialog::ExistingFile, QFileDialog::ExistingFiles, QFileDialog::Directory}) {
            for (const QString& text :
                 {QString(), QStringLiteral("old.dat"), QStringLiteral("missing"), QStringLiteral("folder"),
                  QStringLiteral("\"old.dat\" \"missing\""), QStringLiteral("folder/.."), QString(300, QChar('x'))})
                QTest::addRow("%s, mode %d: %s", accept == QFileDialog::AcceptOpen ? "open" : "save", int(mode),
                              qPrintable(text))
                    << accept << mode << text;
        }
    }
}

/// The slot of QFileDialog that does the same is private, and not every version of Qt has it.
void tst_FileDialogWidgets::acceptButtonLikeQt()
{
    QFETCH(QFileDialog::AcceptMode, acceptMode);
    QFETCH(QFileDialog::FileMode, fileMode);
    QFETCH(QString, text);
    const auto dialog = makeDialog();
    dialog->setAcceptMode(acceptMode);
    dialog->setFileMode(fileMode);
    dialog->show();
    const FileDialogWidgets widgets(*dialog);
    widgets.selectTypedFilesBy([](const QString&) { return false; });
    QTRY_VERIFY(widgets.model().rowCount(widgets.shownFolder()) > 0);
    typeName(*dialog, text);
    widgets.selection().clearSelection();
    QPushButton& button = widgets.acceptButton();
    for (const bool before : {true, false}) {
        button.setEnabled(before);
        button.setText(QStringLiteral("Other"));
        if (!QMetaObject::invokeMethod(dialog.get(), "_q_updateOkButton"))
            QSKIP("This Qt has no such slot.");
        const bool enabled = button.isEnabled();
        const QString label = button.text();

        button.setEnabled(before);
        button.setText(QStringLiteral("Other"));
        widgets.updateAcceptButton();
        QCOMPARE(button.isEnabled(), enabled);
        QCOMPARE(button.text(), label);
        QCOMPARE(widgets.selection().selectedRows(), QModelIndexList());
        QCOMPARE(widgets.fileNameEdit().text(), text);
    }
}

void tst_FileDialogWidgets::labelForAFolder()
{
    const auto dialog = makeDialog();
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    const FileDialogWidgets widgets(*dialog);
    dialog->show();
    QTRY_VERIFY(widgets.model().rowCount(widgets.shownFolder()) > 0);
    typeName(*dialog, QStringLiteral("folder"));
    QCOMPARE(widgets.acceptButton().text(), FileDialogWidgets::openLabel());
    typeName(*dialog, QStringLiteral("new"));
    QVERIFY(widgets.acceptButton().text() != FileDialogWidgets::openLabel());

    widgets.buttonBox().clear();
    QTest::ignoreMessage(QtWarningMsg, warningAbout("acceptButton").constData());
    QVERIFY(!widgets.acceptButton().isVisible());
}

void tst_FileDialogWidgets::fileTypesAreLeftToTheCaller()
{
    const auto dialog = makeDialog();
    dialog->setNameFilters({QStringLiteral("Data (*.dat)"), QStringLiteral("Texts (*.txt)")});
    dialog->show();
    const FileDialogWidgets widgets(*dialog);
    pickFilter(*dialog, 1);
    QCOMPARE(widgets.model().nameFilters(), QStringList{QStringLiteral("*.txt")});
    widgets.leaveFileTypesToCaller();
    const QSignalSpy picked(dialog.get(), &QFileDialog::filterSelected);
    pickFilter(*dialog, 0);
    QCOMPARE(widgets.model().nameFilters(), QStringList{QStringLiteral("*.txt")});
    QCOMPARE(picked.count(), 1);

    QTest::ignoreMessage(QtWarningMsg, warningAbout("reaction to a picked file type").constData());
    widgets.leaveFileTypesToCaller(); // QFileDialog no longer reacts to the box.
}

void tst_FileDialogWidgets::boxesHaveLabels()
{
    const auto dialog = m_place->make(QFileDialog::AcceptOpen);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("look", [](QFileDialog& shown) {
        for (const auto& pair : {std::make_pair("lookInCombo", QFileDialog::LookIn),
                                 std::make_pair("fileTypeCombo", QFileDialog::FileType),
                                 std::make_pair("fileNameEdit", QFileDialog::FileName)}) {
            auto* const field = shown.findChild<QWidget*>(QLatin1String(pair.first));
            const auto labels = QAccessible::queryAccessibleInterface(field)->relations(QAccessible::Label);
            QCOMPARE(labels.size(), 1);
            QCOMPARE(qobject_cast<QLabel*>(labels.first().first->object())->text(), shown.labelText(pair.second));
        }
        cancel(shown);
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
}

void tst_FileDialogWidgets::dialogsWorkWithoutAPart_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<bool>("native");
    QTest::addColumn<QFileDialog::AcceptMode>("mode");
    for (const char* part : {"fileNameEdit", "fileTypeCombo", "buttonBox", "qt_filesystem_model", "listView",
                             "lookInLabel", "lookInCombo", "fileTypeLabel"}) {
        for (const bool native : {false, true}) {
            if (native && systemLimits::nativeDialogIsTheSystems)
                continue;
            for (const auto mode : {QFileDialog::AcceptOpen, QFileDialog::AcceptSave})
                QTest::addRow("%s, %s, %s", part, native ? "native" : "drawn by Qt",
                              mode == QFileDialog::AcceptOpen ? "open" : "save")
                    << part << native << mode;
        }
    }
}

void tst_FileDialogWidgets::dialogsWorkWithoutAPart()
{
    QFETCH(QString, part);
    QFETCH(bool, native);
    QFETCH(QFileDialog::AcceptMode, mode);
    const IgnoreMessages warnings(QStringLiteral("^QFileDialog of Qt .* has no .*"));
    const OtherQt otherQt(part);
    ExtendedFileDialog::setUseNativeFileDialog(native);
    ExtendedFileDialog dialog(m_place->window, "Choose", m_place->path().toStdString(), "Data (*.dat);;All files (*)",
                              "topic", mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    DialogDriver driver;
    driver.onDialog<QFileDialog>("use", [this, part](QFileDialog& shown) {
        QVERIFY(shown.findChild<QObject*>(QStringLiteral("renamed")));
        QLineEdit& edit = FileDialogWidgets(shown).fileNameEdit();
        for (const char* name : {"a*", "missing/new", "12\" pipe", "folder", ""}) {
            edit.setText(QLatin1String(name));
            shown.setDirectory(m_place->path(QStringLiteral("folder")));
            shown.selectNameFilter(QStringLiteral("All files (*)"));
            shown.setDirectory(m_place->path());
        }
        edit.setText(QStringLiteral("a*"));
        QVERIFY(QMetaObject::invokeMethod(&shown, "accept"));
        QVERIFY(shown.isVisible());
        m_place->folders.addFile(QStringLiteral("new.dat"));
        QTest::qWait(50); // The model reports the file.
        cancel(shown);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

UI_TEST_MAIN(tst_FileDialogWidgets)
#include "tst_FileDialogWidgets.moc"
