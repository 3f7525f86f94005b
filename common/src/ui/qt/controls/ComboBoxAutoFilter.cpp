#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include "compat/ctkCompleter.h"
#include "compat/filter/ModelTexts.h"
#include "compat/filter/TextSearch.h"
#include "ui/qt/controls/AutoFilterItemView.h"
#include "ui/qt/controls/AutoFilterLineEdit.h"
#include "ui/qt/controls/PopupFit.h"

#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionComboBox>

namespace zelmar::ui {

namespace {

/// Up to so many items are all measured for the size of the box, of more a few.
constexpr int allMeasured = 1000;
constexpr int fewMeasured = 100;

/// As many as are laid out before anybody notices. Much smaller ones would show less, not sooner: while the rest of
/// them is laid out, a list that has changed meanwhile stays empty.
constexpr int batchSize = 100000;

/// Lays out what is shown first, and the rest when there is time.
void layOutInBatches(QListView& list)
{
    list.setUniformItemSizes(true);
    list.setLayoutMode(QListView::Batched);
    list.setBatchSize(batchSize);
}

/// The first batch as far as `row`, which is to be seen at once.
void layOutUpTo(QListView& list, int row)
{
    list.setBatchSize(qMax(row, 0) + batchSize);
    const QAbstractItemModel* const model = list.model();
    if (model && row >= 0 && list.visualRect(model->index(row, list.modelColumn(), list.rootIndex())).isEmpty())
        list.doItemsLayout();
}

/// Whether `event` asks for Escape, which the list takes. QComboBox would close the list at this question, and the key
/// go to the box.
bool leavesToList(QEvent& event)
{
    if (event.type() != QEvent::ShortcutOverride || static_cast<QKeyEvent&>(event).key() != Qt::Key_Escape)
        return false;
    event.accept();
    return true;
}

} // namespace

ComboBoxAutoFilter::ComboBoxAutoFilter(QWidget* parent)
    : QComboBox(parent)
{
    auto* const list = new AutoFilterItemView;
    // Before the combo box filters them, and so behind it: only what it does not take as a choice arrives here.
    list->viewport()->installEventFilter(this);
    setView(list);
    // After the combo box filters it, and so before it.
    list->installEventFilter(this);
    layOutInBatches(*list);
    connect(view(), SIGNAL(pressed(const QModelIndex&)), this, SLOT(onItemClicked(const QModelIndex&)));
    connect(view(), SIGNAL(editingFinished()), this, SLOT(onEditingFinished()));
    connect(view(), SIGNAL(editingCanceled()), this, SLOT(onEditingCanceled()));
    connect(view(), SIGNAL(currentIndexChanged(QModelIndex const&)), this,
            SLOT(onCurrentIndexChanged(QModelIndex const&)));
    connect(this, SIGNAL(activated(int)), this, SLOT(onItemActivated(int)));
}

ComboBoxAutoFilter::~ComboBoxAutoFilter()
{
    delete m_completer;
}

void ComboBoxAutoFilter::setList(const QStringList& items)
{
    addItems(items);
}

void ComboBoxAutoFilter::setListModel(QAbstractItemModel* model, bool editable, QCompleter::CompletionMode mode,
                                      Qt::CaseSensitivity caseSensitivity, Qt::TextElideMode elideMode,
                                      Qt::MatchFlag matchFlag)
{
    setModel(model);
    init(editable, mode, caseSensitivity, elideMode, matchFlag);
}

void ComboBoxAutoFilter::setCompleterAttributes(bool editable, QCompleter::CompletionMode mode,
                                                Qt::CaseSensitivity caseSensitivity, Qt::TextElideMode elideMode,
                                                Qt::MatchFlag matchFlag)
{
    init(editable, mode, caseSensitivity, elideMode, matchFlag);
}

void ComboBoxAutoFilter::init(bool editable, QCompleter::CompletionMode mode, Qt::CaseSensitivity caseSensitivity,
                              Qt::TextElideMode elideMode, Qt::MatchFlag /*matchFlag*/)
{
    setEditable(editable);
    setLineEdit(new AutoFilterLineEdit);
    auto* const completer = new ctkCompleter(model(), this);
    m_completer = completer;
    m_completedModel = model();
    completer->setModelFiltering(ctkCompleter::FilterContains);
    completer->setCompletionMode(mode);
    completer->setCompletionColumn(modelColumn());
    if (completer->popup()) {
        completer->popup()->setTextElideMode(elideMode);
        if (auto* const list = qobject_cast<QListView*>(completer->popup())) {
            layOutInBatches(*list);
            new PopupFit(*list, *this);
        }
    }
    completer->setCaseSensitivity(caseSensitivity);
    setCompleter(completer);
    if (lineEdit())
        connect(lineEdit(), SIGNAL(editingFinished()), this, SLOT(onEditingFinished()));
    if (auto* const list = qobject_cast<QListView*>(view()))
        list->setUniformItemSizes(true);
    setInsertPolicy(QComboBox::NoInsert);
}

// Looking for items

/// As findText() with Qt::MatchContains, in the texts that are looked through for completions, too.
int ComboBoxAutoFilter::findContaining(const QString& text) const
{
    if (text.isEmpty() || count() == 0 || rootModelIndex().isValid())
        return findText(text, Qt::MatchContains);
    ModelTexts& items = ModelTexts::of(*model(), modelColumn(), Qt::DisplayRole);
    return TextSearch(text, Qt::CaseInsensitive).firstIn(items.texts());
}

bool ComboBoxAutoFilter::selectContaining()
{
    const int index = findContaining(lineEdit()->text());
    if (index < 0)
        return false;
    setCurrentIndex(index);
    return true;
}

bool ComboBoxAutoFilter::validateEntry()
{
    if (m_escapePressed)
        return true;
    return lineEdit() ? selectContaining() : currentIndex() >= 0;
}

void ComboBoxAutoFilter::setSelectedText(const QString& text)
{
    const int index = findText(text, Qt::MatchCaseSensitive);
    if (index >= 0)
        setCurrentIndex(index);
    if (lineEdit())
        lineEdit()->setSelection(0, text.size());
}

void ComboBoxAutoFilter::setFromValue(const QVariant& value)
{
    const int index = findData(value, Qt::UserRole, Qt::MatchCaseSensitive);
    if (index >= 0 && index != currentIndex())
        setCurrentIndex(index);
}

void ComboBoxAutoFilter::letCompleterFollow()
{
    if (!m_completer)
        return;
    auto* const completer = static_cast<ctkCompleter*>(m_completer.data());
    if (m_completedModel != model()) {
        m_completedModel = model();
        completer->setModel(model());
    }
    completer->setCompletionColumn(modelColumn());
}

// Beginning and ending

void ComboBoxAutoFilter::showPopup()
{
    if (lineEdit())
        selectContaining();
    if (m_indexAtEditStart == -1)
        m_indexAtEditStart = currentIndex();
    // Unless the application has put another kind of view in its place.
    if (auto* const list = qobject_cast<QListView*>(view())) {
        list->setMinimumWidth(PopupFit::widthOf(*list, currentIndex()));
        layOutUpTo(*list, currentIndex());
    }
    QComboBox::showPopup();
}

void ComboBoxAutoFilter::leave()
{
    hidePopup(); // which gives the keyboard back to the box, and so to where it goes from there
    if (m_completer && m_completer->popup())
        m_completer->popup()->hide();
    close();
    // Where the system has taken the list for a window with the keyboard, that comes back later, and to the hidden box.
    if (!isWindow() && parentWidget() && window()->focusWidget() == this)
        parentWidget()->setFocus();
}

void ComboBoxAutoFilter::finishEditing()
{
    validateEntry();
    leave();
    Q_EMIT selectionComplete();
}

void ComboBoxAutoFilter::onEditingFinished()
{
    finishEditing();
}

void ComboBoxAutoFilter::onEditingCanceled()
{
    setCurrentIndex(m_indexAtEditStart);
    leave();
    Q_EMIT editingCanceled();
}

void ComboBoxAutoFilter::onItemClicked(const QModelIndex& /*modelIndex*/)
{
    m_itemClicked = true;
}

void ComboBoxAutoFilter::onItemActivated(int index)
{
    if (m_indexAtEditStart == -1)
        m_indexAtEditStart = index;
    // The keyboard activates, too, and finishes on its own.
    if (!m_itemClicked)
        return;
    m_itemClicked = false;
    finishEditing();
}

void ComboBoxAutoFilter::onCurrentIndexChanged(const QModelIndex& currentIndex)
{
    setCurrentIndex(currentIndex.row());
}

// Events

bool ComboBoxAutoFilter::event(QEvent* e)
{
    if (!AutoFilterLineEdit::isTab(*e) || !dynamic_cast<AutoFilterLineEdit*>(lineEdit()))
        return QComboBox::event(e);
    keyPressEvent(static_cast<QKeyEvent*>(e));
    return true;
}

bool ComboBoxAutoFilter::eventFilter(QObject* watched, QEvent* e)
{
    if (watched == view())
        return leavesToList(*e);
    // Pressed on an item, and let go elsewhere: no click.
    if (e->type() == QEvent::MouseButtonRelease)
        m_itemClicked = false;
    return QComboBox::eventFilter(watched, e);
}

void ComboBoxAutoFilter::inputMethodEvent(QInputMethodEvent* e)
{
    letCompleterFollow();
    QComboBox::inputMethodEvent(e);
}

void ComboBoxAutoFilter::keyPressEvent(QKeyEvent* e)
{
    letCompleterFollow();
    // Whoever is told that editing was cancelled may delete the box at once.
    const QPointer<ComboBoxAutoFilter> self(this);
    if (e->key() == Qt::Key_Escape) {
        m_escapePressed = true;
        leave();
        Q_EMIT editingCanceled();
    }
    if (self)
        QComboBox::keyPressEvent(e);
}

/// Qt hands the keyboard of a widget that is hidden on to the next field; nobody has asked for that here.
bool ComboBoxAutoFilter::focusNextPrevChild(bool next)
{
    if (isVisible() || isWindow() || !parentWidget())
        return QComboBox::focusNextPrevChild(next);
    parentWidget()->setFocus();
    return true;
}

// Size

QSize ComboBoxAutoFilter::sizeHint() const
{
    return count() > allMeasured ? sizeHintOfFirstItems() : QComboBox::sizeHint();
}

QSize ComboBoxAutoFilter::minimumSizeHint() const
{
    return count() > allMeasured ? sizeHintOfFirstItems() : QComboBox::minimumSizeHint();
}

QSize ComboBoxAutoFilter::sizeHintOfFirstItems() const
{
    int width = 0;
    if (sizeAdjustPolicy() == AdjustToContents || sizeAdjustPolicy() == AdjustToContentsOnFirstShow) {
        for (int item = 0; item < fewMeasured; ++item)
            width = qMax(width, fontMetrics().boundingRect(itemText(item)).width());
    }
    width = qMax(width, minimumContentsLength() * fontMetrics().horizontalAdvance(QLatin1Char('X')));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents(width, qMax(fontMetrics().height(), 14) + 2);
    return style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this);
}

} // namespace zelmar::ui
