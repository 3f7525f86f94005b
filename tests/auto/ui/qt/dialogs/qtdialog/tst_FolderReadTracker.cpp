#include "ui/qt/dialogs/qtdialog/FolderReadTracker_p.h"

#include "DialogFolders.h"
#include "TestHome.h"
#include "systemLimits.h"

#include <QApplication>
#include <QDir>
#include <QSignalSpy>
#include <QTest>

using zelmar::internal::FolderReadTracker;

/// Uses a model without views, so that no view makes it read folders and each test controls what is read.
class tst_FolderReadTracker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void untilTheRootIsAnnounced();
    void otherFoldersDoNotCount();
    void folderThatWasLeftIsReadAgain();
    void folderThatAViewHadReadIsKnown();
    void lateAnnouncementOfALeftFolder();
    void recreatedFolderIsAnotherOne();
    void deletedRootIsNotBeingRead();
    void cleanupTestCase() { m_model.reset(); }

private:
    void enter(const QString& folder);
    void awaitAnnouncement(const QString& folder);

    std::unique_ptr<DialogFolders> m_folders;
    QString m_first, m_second;
    std::unique_ptr<QFileSystemModel> m_model;
    FolderReadTracker* m_tracker = nullptr;
    std::unique_ptr<QSignalSpy> m_announced;
};

void tst_FolderReadTracker::init()
{
    m_announced.reset();
    m_model.reset(); // precedes its folders, because some systems cannot delete a folder that is being watched
    m_folders = std::make_unique<DialogFolders>();
    m_first = m_folders->addFolder(QStringLiteral("first"), 3);
    m_second = m_folders->addFolder(QStringLiteral("second"));
    m_model = std::make_unique<QFileSystemModel>();
    m_tracker = new FolderReadTracker(*m_model);
    m_announced = std::make_unique<QSignalSpy>(m_model.get(), &QFileSystemModel::directoryLoaded);
}

void tst_FolderReadTracker::enter(const QString& folder)
{
    m_announced->clear();
    m_model->setRootPath(folder);
}

void tst_FolderReadTracker::awaitAnnouncement(const QString& folder)
{
    QTRY_VERIFY(m_announced->contains(QVariantList{folder}));
}

void tst_FolderReadTracker::untilTheRootIsAnnounced()
{
    for (const QString& folder : {m_first, m_second}) {
        enter(folder);
        QVERIFY(m_tracker->rootIsBeingRead());
        awaitAnnouncement(folder);
        QVERIFY(!m_tracker->rootIsBeingRead());
    }
}

void tst_FolderReadTracker::otherFoldersDoNotCount()
{
    enter(m_first);
    m_model->fetchMore(m_model->index(m_second));
    enter(m_folders->addFolder(QStringLiteral("third")));
    awaitAnnouncement(m_second);
    enter(m_folders->addFolder(QStringLiteral("fourth")));
    QVERIFY(m_tracker->rootIsBeingRead());
}

void tst_FolderReadTracker::folderThatWasLeftIsReadAgain()
{
    enter(m_first);
    awaitAnnouncement(m_first);
    enter(m_second);
    awaitAnnouncement(m_second);
    enter(m_first);
    QVERIFY(m_tracker->rootIsBeingRead());
    awaitAnnouncement(m_first);
    QVERIFY(!m_tracker->rootIsBeingRead());
}

/// In this case the model emits no directoryLoaded() when the folder is entered again.
void tst_FolderReadTracker::folderThatAViewHadReadIsKnown()
{
    enter(m_first);
    awaitAnnouncement(m_first);
    enter(m_second);
    m_model->fetchMore(m_model->index(m_first));
    awaitAnnouncement(m_first);
    awaitAnnouncement(m_second);
    enter(m_first);
    QVERIFY(!m_tracker->rootIsBeingRead());
}

void tst_FolderReadTracker::lateAnnouncementOfALeftFolder()
{
    enter(m_first);
    QTRY_VERIFY(!m_model->canFetchMore(m_model->index(m_first)));
    enter(m_second); // precedes the delivery of the first folder's announcement
    awaitAnnouncement(m_second);
    enter(m_first);
    QVERIFY(m_tracker->rootIsBeingRead());
    awaitAnnouncement(m_first);
    QVERIFY(!m_tracker->rootIsBeingRead());
}

void tst_FolderReadTracker::recreatedFolderIsAnotherOne()
{
    if (systemLimits::watchedFoldersStay)
        QSKIP(systemLimits::watchedFoldersStay);
    enter(m_first);
    awaitAnnouncement(m_first);
    enter(m_folders->path());
    awaitAnnouncement(m_folders->path());
    m_model->fetchMore(m_model->index(m_first));
    awaitAnnouncement(m_first);
    QVERIFY(QDir(m_first).removeRecursively());
    QTRY_VERIFY(!m_model->index(m_first).isValid());
    m_folders->addFolder(QStringLiteral("first"));
    enter(m_first);
    QVERIFY(m_tracker->rootIsBeingRead());
    awaitAnnouncement(m_first);
    QVERIFY(!m_tracker->rootIsBeingRead());
}

void tst_FolderReadTracker::deletedRootIsNotBeingRead()
{
    if (systemLimits::watchedFoldersStay)
        QSKIP(systemLimits::watchedFoldersStay);
    enter(m_folders->path());
    awaitAnnouncement(m_folders->path());
    enter(m_first);
    QVERIFY(QDir(m_first).removeRecursively());
    QTRY_VERIFY(!m_tracker->rootIsBeingRead());
}

UI_TEST_MAIN(tst_FolderReadTracker)
#include "tst_FolderReadTracker.moc"
