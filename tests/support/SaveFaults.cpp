#include "SaveFaults.h"

#include "DialogDriver.h"
#include "SaveFaultPlaces.h"
#include "SystemSaveFaults.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

#include <iterator>
#include <utility>

namespace {

std::vector<SaveFault> plainFaults()
{
    return {
        {"nothing is wrong: new file", [](const QString& f) { return at(f, "new.dat"); }, {}, true},
        {"nothing is wrong: existing file",
         [](const QString& f) { return addFile(at(f, "old.dat")); },
         {"overwrite"},
         true},
        {"nothing is wrong: non-ASCII name",
         [](const QString& f) { return addFile(f + QStringLiteral(u"/Me\u00dfwert \u6e2c\u5b9a.dat")); },
         {"overwrite"},
         true},
        {"read-only file",
         [](const QString& f) { return addFile(at(f, "old.dat"), Access::NoWriting); },
         {"overwrite", "unable"},
         false},
        {"writable file in a read-only folder",
         [](const QString& f) {
             addFolder(at(f, "closed"));
             addFile(at(f, "closed/old.dat"));
             return addFolder(at(f, "closed"), Access::NoWriting) + QStringLiteral("/old.dat");
         },
         {"overwrite"},
         true},
        {"new file in a read-only folder",
         [](const QString& f) { return addFolder(at(f, "closed"), Access::NoWriting) + QStringLiteral("/new.dat"); },
         {"unable"},
         false},
        {"missing folder", [](const QString& f) { return at(f, "missing/new.dat"); }, {"unable"}, false},
        {"a file in place of the folder",
         [](const QString& f) { return addFile(at(f, "file")) + QStringLiteral("/new.dat"); },
         {"unable"},
         false},
        {"a folder as target",
         [](const QString& f) { return addFolder(at(f, "folder.dat")); },
         {"overwrite", "unable"},
         false},
        {"name too long",
         [](const QString& f) {
             return f + QLatin1Char('/') + QString(300, QLatin1Char('x')) + QStringLiteral(".dat");
         },
         {},
         true},
        {"file deleted after the choice",
         [](const QString& f) { return addFile(at(f, "old.dat")); },
         {},
         true,
         [](const QString& f) { QFile::remove(at(f, "old.dat")); }},
    };
}

QByteArray stateOf(const QFileInfo& info)
{
    QByteArray state = QByteArray::number(int(info.permissions()), 16) + ' '
                       + QByteArray::number(info.metadataChangeTime().toMSecsSinceEpoch()) + ' '
                       + QByteArray::number(info.lastModified().toMSecsSinceEpoch());
    QFile file(info.filePath());
    if (info.isFile() && !info.isSymLink() && file.open(QIODevice::ReadOnly))
        state += ' ' + file.readAll();
    return state;
}

} // namespace

const std::vector<SaveFault>& saveFaults()
{
    static const std::vector<SaveFault> faults = [] {
        std::vector<SaveFault> all = plainFaults();
        std::vector<SaveFault> more = systemSaveFaults();
        std::move(more.begin(), more.end(), std::back_inserter(all));
        return all;
    }();
    return faults;
}

QMap<QString, QByteArray> folderState(const QString& folder, bool itself)
{
    QMap<QString, QByteArray> state;
    if (itself)
        state[folder] = stateOf(QFileInfo(folder));
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        entries.next();
        if (itself || !entries.fileInfo().isDir())
            state[entries.filePath()] = stateOf(entries.fileInfo());
    }
    return state;
}

void addSaveFaultRows()
{
    QTest::addColumn<int>("fault");
    for (std::size_t i = 0; i < saveFaults().size(); ++i)
        QTest::newRow(saveFaults()[i].name) << int(i);
}

SaveFaultTrial::SaveFaultTrial(const SaveFault& fault, const QString& folder)
    : m_fault(fault)
    , m_folder(addFolder(folder))
    , m_chosenName(fault.prepare(folder))
    // The write probe changes the modification time of a folder in which it creates and removes a temporary file.
    , m_before(folderState(folder, !fault.accepted))
{
}

SaveFaultTrial::~SaveFaultTrial()
{
    removeSaveFaults(m_folder);
}

std::unique_ptr<RecordingMessageHandler> SaveFaultTrial::makeHandler()
{
    auto handler = std::make_unique<RecordingMessageHandler>(m_calls);
    handler->whenChecked = [this](const std::string& name) {
        if (m_fault.meanwhile)
            m_fault.meanwhile(m_folder);
        return name;
    };
    return handler;
}

void SaveFaultTrial::addAnswers(DialogDriver& driver) const
{
    for (const std::string& question : m_fault.questions) {
        const QString text = QString::fromStdString(question);
        driver.onDialogWhen<QMessageBox>(
            text, [text](QMessageBox& box) { return box.text() == text; },
            [question](QMessageBox& box) {
                box.button(question == "overwrite" ? QMessageBox::Yes : QMessageBox::No)->click();
            });
    }
}

QString SaveFaultTrial::problem(bool launched) const
{
    RecordingMessageHandler::Calls expected{"check " + m_chosenName.toStdString()};
    expected.insert(expected.end(), m_fault.questions.begin(), m_fault.questions.end());
    QStringList problems;
    if (launched != m_fault.accepted)
        problems +=
            QStringLiteral("the flow returns %1").arg(launched ? QStringLiteral("true") : QStringLiteral("false"));
    if (m_calls != expected) {
        for (const std::string& call : m_calls)
            problems += QStringLiteral("the flow asks: ") + QString::fromStdString(call);
    }
    if (!m_fault.meanwhile && folderState(m_folder, !m_fault.accepted) != m_before)
        problems += QStringLiteral("the folder is not as it was");
    return problems.join(QLatin1Char('\n'));
}
