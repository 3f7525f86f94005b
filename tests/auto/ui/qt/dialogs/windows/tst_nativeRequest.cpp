#include "TestHome.h"
#include "ui/qt/dialogs/windows/nativeRequest_p.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace zelmar::internal;

Q_DECLARE_METATYPE(QFileDialog::FileMode)

class tst_nativeRequest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setsOptions_data();
    void setsOptions();
    void turnsSlashes();
    void findsTheStartFolder_data();
    void findsTheStartFolder();
    void looksUpMenuItems();
    void keepsTextsOfTypes();
};

void tst_nativeRequest::setsOptions_data()
{
    QTest::addColumn<QFileDialog::FileMode>("mode");
    QTest::addColumn<bool>("confirmOverwrite");
    QTest::addColumn<DWORD>("bits");
    QTest::newRow("any file") << QFileDialog::AnyFile << false << DWORD(0);
    QTest::newRow("existing file") << QFileDialog::ExistingFile << false << DWORD(0x1000);
    QTest::newRow("existing files") << QFileDialog::ExistingFiles << false << DWORD(0x1200);
    QTest::newRow("folder") << QFileDialog::Directory << false << DWORD(0x820);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 has no such mode
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QTest::newRow("the old folder mode is any file") << QFileDialog::DirectoryOnly << false << DWORD(0);
    QT_WARNING_POP
#endif
    QTest::newRow("any file, with the question") << QFileDialog::AnyFile << true << DWORD(0x2);
    QTest::newRow("folder, with the question") << QFileDialog::Directory << true << DWORD(0x822);
}

void tst_nativeRequest::setsOptions()
{
    QFETCH(QFileDialog::FileMode, mode);
    QFETCH(bool, confirmOverwrite);
    QFETCH(DWORD, bits);
    const DWORD ours = 0x2 | 0x20 | 0x200 | 0x800 | 0x1000;
    QCOMPARE(nativeOptions(0, mode, confirmOverwrite), bits);
    QCOMPARE(nativeOptions(0xFFFFFFFF, mode, confirmOverwrite), (0xFFFFFFFF & ~ours) | bits);
}

void tst_nativeRequest::turnsSlashes()
{
    QCOMPARE(QString::fromStdWString(nativeFolder("/home/\xC3\xA4/x")), QString::fromUtf8("\\home\\\xC3\xA4\\x"));
    QCOMPARE(QString::fromStdWString(nativeFolder("C:\\a/b")), QString("C:\\a\\b"));
    QVERIFY(nativeFolder("").empty());
}

void tst_nativeRequest::findsTheStartFolder_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("folder");
    QTest::newRow("a folder") << "/in"
                              << "/in";
    QTest::newRow("a folder, with a slash at its end") << "/in/"
                                                       << "/in/";
    QTest::newRow("a file") << "/in/file.dat"
                            << "/in";
    QTest::newRow("not ASCII") << QString::fromUtf8("/\xC3\xA4\xF0\x9F\x93\x81/f")
                               << QString::fromUtf8("/\xC3\xA4\xF0\x9F\x93\x81");
    QTest::newRow("missing") << "/missing" << QString();
    QTest::newRow("below a missing folder") << "/missing/file.dat" << QString();
    QTest::newRow("below a file") << "/in/file.dat/x" << QString();
    QTest::newRow("a name too long to look at") << "/" + QString(5000, 'x') << QString();
}

void tst_nativeRequest::findsTheStartFolder()
{
    QFETCH(QString, entry);
    QFETCH(QString, folder);
    QTemporaryDir place;
    for (const QString& name : {QStringLiteral("in/file.dat"), QString::fromUtf8("\xC3\xA4\xF0\x9F\x93\x81/f")}) {
        QVERIFY(QDir(place.path()).mkpath(QFileInfo(name).path()));
        QFile file(place.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(QString::fromStdString(startFolder((place.path() + entry).toStdString())),
             folder.isNull() ? QString("") : place.path() + folder);
    QCOMPARE(startFolder(""), std::string());
}

void tst_nativeRequest::looksUpMenuItems()
{
    const std::map<DWORD, int> values = {{3, 0}, {5, -1}};
    QCOMPARE(optionValue(values, 3, 255), 0);
    QCOMPARE(optionValue(values, 5, 255), -1);
    QCOMPARE(optionValue(values, 4, 255), 255);
    QCOMPARE(optionValue({}, 0, 7), 7);
}

void tst_nativeRequest::keepsTextsOfTypes()
{
    const NativeFileTypes types({"Images (*.png *.jpg)", "*.txt", ""});
    const std::vector<COMDLG_FILTERSPEC> specs = types.specs();
    QCOMPARE(specs.size(), std::size_t(3));
    QCOMPARE(std::wstring(specs[0].pszName), std::wstring(L"Images"));
    QCOMPARE(std::wstring(specs[0].pszSpec), std::wstring(L"*.png;*.jpg"));
    QCOMPARE(std::wstring(specs[1].pszName), std::wstring(L"File of Type"));
    QCOMPARE(std::wstring(specs[1].pszSpec), std::wstring(L"*.txt"));
    QCOMPARE(std::wstring(specs[2].pszSpec), std::wstring());
    QVERIFY(NativeFileTypes({}).specs().empty());
}

CORE_TEST_MAIN(tst_nativeRequest)
#include "tst_nativeRequest.moc"
