#include "TableCopyPage.h"

#include "TableView.h"

#include "ui/qt/controls/TableCopyHandler.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTextOption>

namespace gallery {

namespace {

// The beginning of a long text suffices and is laid out quickly.
constexpr int longestShownText = 2000;

QString columnName(int column)
{
    return QString(QChar('A' + column));
}

/// Returns a model whose cells contain their spreadsheet names. Some cells cannot be copied, as their texts say.
std::unique_ptr<QAbstractItemModel> makeFewCells()
{
    auto model = std::make_unique<QStandardItemModel>(6, 5);
    for (int column = 0; column < model->columnCount(); ++column) {
        model->setHorizontalHeaderItem(column, new QStandardItem(columnName(column)));
        for (int row = 0; row < model->rowCount(); ++row)
            model->setItem(row, column, new QStandardItem(columnName(column) + QString::number(row + 1)));
    }
    for (QStandardItem* item : {model->item(1, 2), model->item(4, 0)}) {
        item->setEnabled(false);
        item->setText(TableCopyPage::tr("%1, disabled").arg(item->text()));
    }
    for (QStandardItem* item : {model->item(2, 1), model->item(4, 3)}) {
        item->setSelectable(false);
        item->setText(TableCopyPage::tr("%1, not selectable").arg(item->text()));
    }
    return model;
}

class MillionNumbers : public QAbstractTableModel
{
public:
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 10000; }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 100; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant((index.row() + 1) / (index.column() + 1.0)) : QVariant();
    }
};

} // namespace

TableCopyPage::TableCopyPage()
    : GalleryPage(tr("Table copy"),
                  tr("The Copy keys put the selected cells on the clipboard: a tab between the cells of a row, a line "
                     "feed between rows, nothing for what is not selected, disabled or not selectable."))
    , m_fewCells(makeFewCells())
    , m_millionCells(std::make_unique<MillionNumbers>())
    , m_view(new TableView)
    , m_selectButton(new QPushButton(tr("Select &all")))
    , m_copyButton(new QPushButton(tr("&Copy")))
    , m_million(new QCheckBox(tr("A &million cells")))
    , m_hidden(new QCheckBox(tr("&Hide column B")))
    , m_size(new QLabel)
    , m_text(new QPlainTextEdit)
{
    addWidgets();
    connectWidgets();
    showMillion(false);
}

TableCopyPage::~TableCopyPage()
{
    m_view->setModel(nullptr);
}

void TableCopyPage::addWidgets()
{
    m_view->setAccessibleName(tr("Table"));
    m_view->horizontalHeader()->setSectionsMovable(true);
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setPlaceholderText(tr("What was copied is shown here."));
    QTextOption option = m_text->document()->defaultTextOption();
    option.setFlags(option.flags() | QTextOption::ShowTabsAndSpaces);
    m_text->document()->setDefaultTextOption(option);
    m_size->setObjectName(QStringLiteral("size"));
    m_size->setTextFormat(Qt::PlainText);
    auto* label = new QLabel(tr("Copied &text"));
    label->setBuddy(m_text);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_selectButton);
    buttons->addWidget(m_copyButton);
    buttons->addWidget(m_million);
    buttons->addWidget(m_hidden);
    buttons->addStretch();
    contents().addLayout(buttons);
    contents().addWidget(m_view, 3);
    contents().addWidget(label);
    contents().addWidget(m_text, 2);
    contents().addWidget(m_size);
}

void TableCopyPage::connectWidgets()
{
    connect(m_selectButton, &QPushButton::clicked, m_view, &QTableView::selectAll);
    connect(m_copyButton, &QPushButton::clicked, &m_view->copyHandler(),
            &zelmar::ui::TableCopyHandler::copyToClipboard);
    connect(m_million, &QCheckBox::toggled, this, &TableCopyPage::showMillion);
    connect(m_hidden, &QCheckBox::toggled, this, &TableCopyPage::hideColumnB);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &TableCopyPage::showCopiedText);
}

void TableCopyPage::showMillion(bool on)
{
    m_view->setModel(on ? m_millionCells.get() : m_fewCells.get());
    hideColumnB(m_hidden->isChecked());
    m_view->fitColumns();
}

void TableCopyPage::hideColumnB(bool on)
{
    m_view->setColumnHidden(1, on);
}

void TableCopyPage::showCopiedText()
{
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    if (!isVisible() || !clipboard.ownsClipboard())
        return;
    const QString text = clipboard.text();
    const bool isLong = text.size() > longestShownText;
    m_text->setPlainText(isLong ? text.left(longestShownText) + QChar(0x2026) : text);
    const QLocale locale;
    m_size->setText(tr("%1 letters, %2 line feeds")
                        .arg(locale.toString(text.size()), locale.toString(qlonglong(text.count(QLatin1Char('\n'))))));
}

} // namespace gallery
