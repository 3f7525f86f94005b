#include "HelpersPage.h"

#include "ui/qt/controls/OverrideCursor.h"
#include "ui/qt/controls/OverrideCursorRestorer.h"
#include "ui/qt/controls/QtSignalConnectionCollection.h"
#include "ui/qt/controls/addFontsToDatabase.h"
#include "ui/qt/controls/findMainWindow.h"

#include <QCheckBox>
#include <QEventLoop>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>
#include <QTimer>
#include <QVBoxLayout>

using zelmar::ui::OverrideCursor;
using zelmar::ui::OverrideCursorRestorer;
using zelmar::ui::QtSignalConnectionCollection;

namespace gallery {

namespace {

QString cursorName()
{
    const QCursor* cursor = QGuiApplication::overrideCursor();
    if (!cursor)
        return HelpersPage::tr("none");
    return cursor->shape() == Qt::WaitCursor ? HelpersPage::tr("wait") : HelpersPage::tr("another one");
}

/// Works for half a second, in which windows are painted and mouse clicks are ignored.
void doSomeWork()
{
    QEventLoop loop;
    QTimer::singleShot(500, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

QSet<QString> families()
{
    const QStringList names = QFontDatabase().families();
    return {names.begin(), names.end()};
}

} // namespace

HelpersPage::HelpersPage()
    : GalleryPage(
        tr("Helpers"),
        tr("Cursors for a block of code, connections that end with their owner, the application's main window, "
           "and fonts that need not be installed."))
    , m_work(new QPushButton(tr("&Work, and ask in between")))
    , m_cursors(new QLabel)
    , m_connected(new QCheckBox(tr("&Connected twice")))
    , m_sender(new QPushButton(tr("&Send")))
    , m_heard(new QLabel)
    , m_refresh(new QCheckBox(tr("&Look again")))
    , m_find(new QPushButton(tr("&Find")))
    , m_found(new QLabel)
    , m_path(new QLineEdit)
    , m_addFile(new QPushButton(tr("&Add the file")))
    , m_addFolder(new QPushButton(tr("Add the fol&der")))
    , m_families(new QLabel)
    , m_sample(new QLabel(tr("SAMPLE sample 123")))
{
    for (QLabel* label : {m_cursors, m_heard, m_found, m_families, m_sample})
        label->setTextFormat(Qt::PlainText);
    addCursors();
    addConnections();
    addMainWindow();
    addFonts();
    contents().addStretch();
}

HelpersPage::~HelpersPage() = default;

QFormLayout* HelpersPage::addGroup(const QString& title)
{
    auto* group = new QGroupBox(title);
    contents().addWidget(group);
    return new QFormLayout(group);
}

// Cursors

void HelpersPage::addCursors()
{
    QFormLayout* form = addGroup(tr("Override cursors"));
    form->addRow(m_work);
    form->addRow(tr("They were"), m_cursors);
    connect(m_work, &QPushButton::clicked, this, &HelpersPage::work);
}

void HelpersPage::work()
{
    QStringList cursors;
    {
        const OverrideCursor wait(Qt::WaitCursor);
        cursors += tr("at work: %1").arg(cursorName());
        doSomeWork();
        {
            const OverrideCursorRestorer usual;
            cursors += tr("in the question: %1").arg(cursorName());
            QMessageBox::information(window(), tr("Helpers"), tr("Half of the work is done."));
        }
        cursors += tr("at work again: %1").arg(cursorName());
        doSomeWork();
    }
    cursors += tr("afterwards: %1").arg(cursorName());
    m_cursors->setText(cursors.join(QStringLiteral(", ")));
}

// Connections

void HelpersPage::addConnections()
{
    QFormLayout* form = addGroup(tr("Connections"));
    auto* row = new QHBoxLayout;
    row->addWidget(m_connected);
    row->addWidget(m_sender);
    row->addStretch();
    form->addRow(row);
    form->addRow(tr("Heard"), m_heard);
    m_heard->setNum(0);
    connect(m_connected, &QCheckBox::toggled, this, &HelpersPage::setConnected);
    m_connected->setChecked(true);
}

void HelpersPage::setConnected(bool on)
{
    if (!on) {
        m_connections.reset();
        return;
    }
    const auto hear = [this] { m_heard->setNum(++m_heardTimes); };
    m_connections = std::make_unique<QtSignalConnectionCollection>();
    m_connections->add(connect(m_sender, &QPushButton::clicked, this, hear));
    m_connections->add(connect(m_sender, &QPushButton::clicked, this, hear));
}

// The main window

void HelpersPage::addMainWindow()
{
    QFormLayout* form = addGroup(tr("Main window"));
    auto* row = new QHBoxLayout;
    row->addWidget(m_find);
    row->addWidget(m_refresh);
    row->addStretch();
    form->addRow(row);
    form->addRow(tr("Its title is"), m_found);
    connect(m_find, &QPushButton::clicked, this, &HelpersPage::showMainWindow);
}

void HelpersPage::showMainWindow()
{
    const QMainWindow* mainWindow = zelmar::ui::findMainWindow(m_refresh->isChecked());
    m_found->setText(mainWindow ? mainWindow->windowTitle() : tr("There is none."));
}

// Fonts

void HelpersPage::addFonts()
{
    QFormLayout* form = addGroup(tr("Fonts"));
    form->addRow(tr("Pat&h"), m_path);
    auto* row = new QHBoxLayout;
    row->addWidget(m_addFile);
    row->addWidget(m_addFolder);
    row->addStretch();
    form->addRow(row);
    form->addRow(tr("New families"), m_families);
    form->addRow(tr("The first of them"), m_sample);
    connect(m_path, &QLineEdit::textChanged, this, &HelpersPage::offerFonts);
    connect(m_addFile, &QPushButton::clicked, this, [this] { addFontsFrom(zelmar::ui::addFontToDatabase); });
    connect(m_addFolder, &QPushButton::clicked, this, [this] { addFontsFrom(zelmar::ui::addFontsToDatabase); });
    offerFonts();
}

/// Disables the buttons without a path, because an empty one stands for the current folder.
void HelpersPage::offerFonts()
{
    for (QPushButton* button : {m_addFile, m_addFolder})
        button->setDisabled(m_path->text().isEmpty());
}

void HelpersPage::addFontsFrom(void (*add)(const std::string&))
{
    const QSet<QString> known = families();
    add(m_path->text().toStdString());
    QStringList added = (families() - known).values();
    added.sort();
    m_families->setText(added.isEmpty() ? tr("none") : added.join(QStringLiteral(", ")));
    m_sample->setFont(added.isEmpty() ? font() : QFont(added.first()));
}

} // namespace gallery
