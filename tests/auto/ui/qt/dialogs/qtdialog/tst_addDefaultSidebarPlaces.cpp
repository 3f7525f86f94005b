#include "ui/qt/dialogs/qtdialog/addDefaultSidebarPlaces_p.h"

#include "TestHome.h"

#include <boost/filesystem/operations.hpp>

#include <QApplication>
#include <QFileDialog>
#include <QTest>
#include <QUrl>

#include <stdexcept>

using zelmar::internal::addDefaultSidebarPlaces;

class tst_addDefaultSidebarPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void desktopDocumentsHomeInThisOrder();
    void firstFolderOfAPlaceCounts();
    void placeWithoutFolderIsLeftOut();
    void filesystemErrorLeavesTheSidebarAlone();
    void otherExceptionsPass();

private:
    QString folder(const QString& name) const { return m_folders.filePath(name); }

    QTemporaryDir m_folders;
    std::unique_ptr<QFileDialog> m_dialog;
    QList<QUrl> m_before;
};

void tst_addDefaultSidebarPlaces::init()
{
    for (const char* name : {"first", "second", "third", "there already"})
        QVERIFY(QDir(m_folders.path()).mkpath(QLatin1String(name)));
    m_dialog = std::make_unique<QFileDialog>();
    m_dialog->setOption(QFileDialog::DontUseNativeDialog);
    m_before = {QUrl::fromLocalFile(folder(QStringLiteral("there already")))};
    m_dialog->setSidebarUrls(m_before);
    QCOMPARE(m_dialog->sidebarUrls(), m_before);
}

void tst_addDefaultSidebarPlaces::desktopDocumentsHomeInThisOrder()
{
    addDefaultSidebarPlaces(*m_dialog, [this](QStandardPaths::StandardLocation place) -> QStringList {
        switch (place) {
        case QStandardPaths::DesktopLocation:
            return {folder(QStringLiteral("first"))};
        case QStandardPaths::DocumentsLocation:
            return {folder(QStringLiteral("second"))};
        case QStandardPaths::HomeLocation:
            return {folder(QStringLiteral("third"))};
        default:
            return {};
        }
    });
    for (const char* name : {"first", "second", "third"})
        m_before += QUrl::fromLocalFile(folder(QLatin1String(name)));
    QCOMPARE(m_dialog->sidebarUrls(), m_before);
}

void tst_addDefaultSidebarPlaces::firstFolderOfAPlaceCounts()
{
    addDefaultSidebarPlaces(*m_dialog, [this](QStandardPaths::StandardLocation place) -> QStringList {
        if (place == QStandardPaths::HomeLocation)
            return {folder(QStringLiteral("second")), folder(QStringLiteral("first"))};
        return {};
    });
    m_before += QUrl::fromLocalFile(folder(QStringLiteral("second")));
    QCOMPARE(m_dialog->sidebarUrls(), m_before);
}

void tst_addDefaultSidebarPlaces::placeWithoutFolderIsLeftOut()
{
    addDefaultSidebarPlaces(*m_dialog, [](QStandardPaths::StandardLocation) { return QStringList(); });
    QCOMPARE(m_dialog->sidebarUrls(), m_before);
}

void tst_addDefaultSidebarPlaces::filesystemErrorLeavesTheSidebarAlone()
{
    const boost::filesystem::filesystem_error error("the disk is gone", boost::system::error_code());
    const QByteArray message = QByteArray("Unable to add default storage locations to sidebar: ") + error.what();
    QTest::ignoreMessage(QtDebugMsg, message.constData());
    int asked = 0;
    addDefaultSidebarPlaces(*m_dialog, [&](QStandardPaths::StandardLocation place) -> QStringList {
        ++asked;
        if (place == QStandardPaths::DocumentsLocation)
            throw error;
        return {folder(QStringLiteral("first"))};
    });
    QCOMPARE(asked, 2);
    QCOMPARE(m_dialog->sidebarUrls(), m_before);
}

void tst_addDefaultSidebarPlaces::otherExceptionsPass()
{
    QVERIFY_EXCEPTION_THROWN(addDefaultSidebarPlaces(*m_dialog,
                                                     [](QStandardPaths::StandardLocation) -> QStringList {
                                                         throw std::runtime_error("not the disk");
                                                     }),
                             std::runtime_error);
}

UI_TEST_MAIN(tst_addDefaultSidebarPlaces)
#include "tst_addDefaultSidebarPlaces.moc"
