#include "FilteringComboPage.h"

#include "NameDelegate.h"
#include "sampleNames.h"

#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStackedLayout>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTableView>
#include <QVBoxLayout>

using zelmar::ui::ComboBoxAutoFilter;

namespace gallery {

namespace {

constexpr int counts[] = {10, 10000, 1000000};
constexpr int channels = 12;

} // namespace

FilteringComboPage::FilteringComboPage()
    : GalleryPage(tr("Filtering combo box"),
                  tr("Type any part of a name: what contains it is offered. Return and Tab take it, Escape does not. "
                     "Press the value to change it, or a name in the table twice."))
    , m_names(new QStringListModel(this))
    , m_counts(new QComboBox)
    , m_label(new QLabel(tr("&Signal")))
    , m_field(new QStackedLayout)
    , m_value(new QPushButton)
    , m_end(new QLabel)
    , m_table(new QTableView)
{
    setNames(counts[0]);
    addForm();
    addTable();
}

FilteringComboPage::~FilteringComboPage() = default;

void FilteringComboPage::addForm()
{
    for (const int count : counts)
        m_counts->addItem(QLocale().toString(count));
    connect(m_counts, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this](int index) { setNames(counts[index]); });
    connect(m_value, &QPushButton::clicked, this, &FilteringComboPage::edit);
    m_value->setText(m_names->index(0).data().toString());
    m_field->addWidget(m_value);
    m_end->setTextFormat(Qt::PlainText);

    auto* form = new QFormLayout;
    form->addRow(tr("&Names"), m_counts);
    // The value and the box are beside the label, not in a widget of their own, because Qt looks for labels there.
    m_label->setBuddy(m_value);
    form->addRow(m_label, m_field);
    form->addRow(tr("Ended by"), m_end);
    contents().addLayout(form);
}

void FilteringComboPage::addTable()
{
    auto* model = new QStandardItemModel(channels, 2, this);
    model->setHorizontalHeaderLabels({tr("Channel"), tr("Signal")});
    for (int row = 0; row < channels; ++row) {
        auto* channel = new QStandardItem(tr("Channel %1").arg(row + 1));
        channel->setEditable(false);
        model->setItem(row, 0, channel);
        model->setItem(row, 1, new QStandardItem(m_names->index(row % m_names->rowCount()).data().toString()));
    }
    m_table->setModel(model);
    m_table->setAccessibleName(tr("Channels"));
    m_table->setTabKeyNavigation(false);
    m_table->horizontalHeader()->setStretchLastSection(true);
    const auto names = [this](const QModelIndex&, QObject*) { return m_names; };
    auto* delegate = new NameDelegate(NameDelegate::Entry::Name, names, m_table);
    m_table->setItemDelegateForColumn(1, delegate);
    contents().addWidget(m_table, 1);
    addRefusal(*delegate);
}

/// Tells below the table which text was not taken, until one is.
void FilteringComboPage::addRefusal(const NameDelegate& delegate)
{
    auto* refusal = new QLabel;
    refusal->setTextFormat(Qt::PlainText);
    refusal->setWordWrap(true);
    contents().addWidget(refusal);
    connect(&delegate, &NameDelegate::textTaken, refusal, &QLabel::clear);
    connect(&delegate, &NameDelegate::textRefused, refusal,
            [refusal](const QString& text) { refusal->setText(tr("\"%1\" is no signal.").arg(text)); });
}

void FilteringComboPage::setNames(int count)
{
    m_names->setStringList(sampleNames(count));
}

// The form

void FilteringComboPage::edit()
{
    if (m_box)
        return;
    m_box = new ComboBoxAutoFilter(this);
    m_box->setListModel(m_names, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                        Qt::MatchContains);
    m_box->setSelectedText(m_value->text());
    connect(m_box, SIGNAL(selectionComplete()), this, SLOT(takeName()));
    connect(m_box, SIGNAL(editingCanceled()), this, SLOT(keepName()));
    m_field->setCurrentIndex(m_field->addWidget(m_box));
    m_label->setBuddy(m_box);
    m_box->setFocus();
}

void FilteringComboPage::takeName()
{
    const bool isName = m_box->validateEntry();
    if (isName)
        m_value->setText(m_box->currentText());
    showValue(isName ? tr("selectionComplete()") : tr("selectionComplete(), but the text is no name"));
}

void FilteringComboPage::keepName()
{
    showValue(tr("editingCanceled()"));
}

void FilteringComboPage::showValue(const QString& end)
{
    m_end->setText(end);
    m_field->removeWidget(m_box);
    m_label->setBuddy(m_value);
    m_box->deleteLater();
    m_box = nullptr;
    m_value->setFocus();
}

} // namespace gallery
