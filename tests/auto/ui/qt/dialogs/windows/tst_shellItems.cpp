#include "TestHome.h"
#include "ui/qt/dialogs/windows/com/ComPtr_p.h"
#include "ui/qt/dialogs/windows/com/fileSystemPath_p.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using namespace zelmar::internal;

namespace {

ComPtr<IShellItem> itemAt(const QString& path)
{
    void* item = nullptr;
    if (FAILED(SHCreateItemFromParsingName(path.toStdWString().c_str(), nullptr, IID_IShellItem, &item)))
        return nullptr;
    return adopt(static_cast<IShellItem*>(item));
}

/// Converts a path into the form that the native dialog passes to the shell. Windows accepts only this form.
QString withBackslashes(QString path)
{
    return path.replace(QLatin1Char('/'), QLatin1Char('\\'));
}

QStringList formsOf(const QString& path)
{
#ifdef Q_OS_WIN
    return {withBackslashes(path)};
#else
    return {withBackslashes(path), path};
#endif
}

QString pathOf(IShellItem& item)
{
    return QDir::fromNativeSeparators(fileSystemPath(&item).value_or(QString()));
}

} // namespace

class tst_shellItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsPathsBack_data();
    void readsPathsBack();
    void refusesWhatIsNoPath_data();
    void refusesWhatIsNoPath();
    void knowsItsFolder();
    void comparesItems();
    void isAShellItemOnly();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_shellItems::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    for (const char* name : {"plain", "with blank", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x81", "outer/inner"})
        QVERIFY(QDir(m_folder->path()).mkpath(QString::fromUtf8(name)));
#ifndef Q_OS_WIN
    for (const char* name : {"back\\slash", "back\\slash/in\\ner", "ends\\"})
        QVERIFY(QDir(m_folder->path()).mkpath(QString::fromUtf8(name)));
#endif
}

void tst_shellItems::readsPathsBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("the folder itself") << "";
    QTest::newRow("plain") << "/plain";
    QTest::newRow("a blank in it") << "/with blank";
    QTest::newRow("letters of two, three and four bytes") << QString::fromUtf8("/\xC3\xA4\xE2\x82\xAC\xF0\x9F\x93\x81");
    QTest::newRow("a folder in a folder") << "/outer/inner";
#ifndef Q_OS_WIN
    QTest::newRow("a backslash in a name") << "/back\\slash";
    QTest::newRow("backslashes in two names") << "/back\\slash/in\\ner";
    QTest::newRow("a backslash at the end of a name") << "/ends\\";
#endif
}

void tst_shellItems::readsPathsBack()
{
    QFETCH(QString, name);
    const QString path = m_folder->path() + name;
    for (const QString& form : formsOf(path)) {
        const ComPtr<IShellItem> item = itemAt(form);
        QVERIFY2(item, qPrintable(form));
        QCOMPARE(pathOf(*item), path);
    }
}

void tst_shellItems::refusesWhatIsNoPath_data()
{
    QTest::addColumn<QString>("path");
#ifndef Q_OS_WIN // where an empty path means the desktop
    QTest::newRow("empty") << "";
#endif
    QTest::newRow("relative") << "no-such-entry";
    QTest::newRow("missing") << m_folder->path() + "/missing";
    QTest::newRow("below a missing one") << m_folder->path() + "\\missing\\plain";
}

void tst_shellItems::refusesWhatIsNoPath()
{
    QFETCH(QString, path);
    QVERIFY(!itemAt(path));
}

void tst_shellItems::knowsItsFolder()
{
    const ComPtr<IShellItem> item = itemAt(withBackslashes(m_folder->path()) + "\\outer\\inner");
    QVERIFY(item);
    IShellItem* parent = nullptr;
    QCOMPARE(item->GetParent(&parent), S_OK);
    QCOMPARE(pathOf(*adopt(parent)), m_folder->path() + "/outer");
}

void tst_shellItems::comparesItems()
{
    const ComPtr<IShellItem> inner = itemAt(withBackslashes(m_folder->path()) + "\\outer\\inner");
    const ComPtr<IShellItem> same = itemAt(formsOf(m_folder->path() + "/outer/inner").last());
    const ComPtr<IShellItem> other = itemAt(withBackslashes(m_folder->path()) + "\\plain");
    int order = 1;
    QCOMPARE(inner->Compare(same.get(), 0, &order), S_OK);
    QCOMPARE(order, 0);
    inner->Compare(other.get(), 0, &order);
    QVERIFY(order != 0);
}

void tst_shellItems::isAShellItemOnly()
{
    const ComPtr<IShellItem> item = itemAt(withBackslashes(m_folder->path()));
    QVERIFY(queryFor<IUnknown>(IID_IUnknown, item.get()));
    QVERIFY(!queryFor<IFileDialog>(IID_IFileDialog, item.get()));
}

CORE_TEST_MAIN(tst_shellItems)
#include "tst_shellItems.moc"
