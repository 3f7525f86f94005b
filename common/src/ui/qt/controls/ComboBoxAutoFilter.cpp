#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include "compat/ctkCompleter.h"
#include "textsearch/ModelTexts_p.h"
#include "textsearch/TextSearch_p.h"
#include "ui/qt/controls/AutoFilterBoxAccessible_p.h"
#include "ui/qt/controls/AutoFilterItemView_p.h"
#include "ui/qt/controls/AutoFilterLineEdit_p.h"
#include "ui/qt/controls/PopupColumn_p.h"
#include "ui/qt/controls/PopupFit_p.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <utility>

using namespace zelmar::internal;

namespace zelmar::ui {

namespace {

/// Up to this number of items, the size hint depends on all of them. Beyond, it depends on the first `fewMeasured`.
constexpr int allMeasured = 1000;
constexpr int fewMeasured = 100;

/// The number of items that are laid out at a time without a noticeable delay. Much smaller batches show nothing
/// sooner, because a list that has changed stays empty until its last batch is laid out.
constexpr int batchSize = 100000;

/// Makes `list` lay out the first batch of items at once and the others from its event loop.
void layOutInBatches(QListView& list)
{
    list.setLayoutMode(QListView::Batched);
    list.setBatchSize(batchSize);
}

/// Extends the first batch of `list` to `row`, because the list scrolls to that row when it opens.
void layOutUpTo(QListView& list, int row)
{
    list.setBatchSize(qMax(row, 0) + batchSize);
    const QAbstractItemModel* const model = list.model();
    if (model && row >= 0 && list.visualRect(model->index(row, list.modelColumn(), list.rootIndex())).isEmpty())
        list.doItemsLayout();
}

/// Returns whether `event` is the shortcut override of Escape, and accepts it so that the list receives the key press.
/// QComboBox would close the list at this event, and the box would receive the key press.
bool leavesToList(QEvent& event)
{
    if (event.type() != QEvent::ShortcutOverride || static_cast<QKeyEvent&>(event).key() != Qt::Key_Escape)
        return false;
    event.accept();
    return true;
}

/// Names the field while assistive technology is active, because it may query the field before the box.
void nameFieldFor(ComboBoxAutoFilter& box)
{
    if (!QAccessible::isActive())
        return;
    if (const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&box))
        accessible->text(QAccessible::Name); // names the field, too
}

/// Hides the open list of completions, if any.
void hideCompletions(const QCompleter* completer)
{
    if (completer && completer->popup())
        completer->popup()->hide();
}

/// Hides the list of completions when another widget of the window gets the keyboard focus, for example by a shortcut.
/// QCompleter would leave the list open, and the list would receive the keys. The box sees no event of this, because
/// QCompleter filters it.
void hideWithoutFocus(QCompleter& completer)
{
    QObject::connect(qApp, &QApplication::focusChanged, &completer, [&completer](QWidget* /*old*/, QWidget* now) {
        const QWidget* const box = completer.widget();
        if (box && now && now != box && now->window() == box->window())
            hideCompletions(&completer);
    });
}

/// Tells assistive technology that the list of `box` opens or closes, if `event` shows or hides that list.
void reportList(ComboBoxAutoFilter& box, const QEvent& event)
{
    if (event.type() != QEvent::Show && event.type() != QEvent::Hide)
        return;
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent stateChange(&box, changed);
    QAccessible::updateAccessibility(&stateChange);
}

} // namespace

ComboBoxAutoFilter::ComboBoxAutoFilter(QWidget* parent)
{
    makeAutoFilterBoxesAccessible();
    setParent(parent); // only now: see makeAccessible()
    auto* const list = new AutoFilterItemView;
    setView(list);
    // Event filters are called in reverse order of installation, so this object filters before QComboBox's container.
    list->installEventFilter(this);
    list->viewport()->installEventFilter(this);
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
    // QCompleter passes key presses to the box and accesses its own members afterwards, so it must outlive the call.
    if (m_completer && m_isInKeyPress) {
        m_completer->setParent(nullptr);
        m_completer->deleteLater();
    } else {
        delete m_completer;
    }
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
    m_completer = completer; // Compatibility: former-completers-stay
    m_completedModel = model();
    completer->setModelFiltering(ctkCompleter::FilterContains); // Compatibility: match-flag-unused
    completer->setCompletionMode(mode);
    completer->setCompletionColumn(modelColumn());
    if (completer->popup()) {
        completer->popup()->setTextElideMode(elideMode);
        if (auto* const list = qobject_cast<QListView*>(completer->popup())) {
            list->setUniformItemSizes(true);
            layOutInBatches(*list);
            new PopupFit(*list, *this);
            new PopupColumn(*list, *completer);
        }
    }
    completer->setCaseSensitivity(caseSensitivity);
    setCompleter(completer);
    hideWithoutFocus(*completer);
    if (lineEdit())
        connect(lineEdit(), SIGNAL(editingFinished()), this, SLOT(onEditingFinished()));
    if (auto* const list = qobject_cast<QListView*>(view()))
        list->setUniformItemSizes(true);
    setInsertPolicy(QComboBox::NoInsert);
}

// Finding items

/// Returns the same index as findText() with Qt::MatchContains, but searches the cached texts that the completer uses.
int ComboBoxAutoFilter::findContaining(const QString& text) const
{
    if (text.isEmpty() || count() == 0 || rootModelIndex().isValid())
        return findText(text, Qt::MatchContains);
    const QPointer<ModelTexts> items(&ModelTexts::of(*model(), modelColumn(), Qt::DisplayRole));
    const TextSearch search(text, Qt::CaseInsensitive);
    // QComboBox announces a new text of the current item before the cache receives dataChanged().
    items->refresh(currentIndex());
    if (!items)
        return -1;
    const quint64 generation = items->generation();
    const int found = search.firstIn(items->texts());
    items->refresh(found);
    return !items || items->generation() == generation ? found : search.firstIn(items->texts());
}

bool ComboBoxAutoFilter::selectContaining()
{
    const int index = findContaining(lineEdit()->text()); // Compatibility: first-containing-item-wins
    if (index < 0)
        return false;
    setCurrentIndex(index);
    return true;
}

bool ComboBoxAutoFilter::validateEntry()
{
    if (m_escapePressed)
        return true; // Compatibility: valid-after-escape
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
    // The application may have replaced the view by one of another class.
    if (auto* const list = qobject_cast<QListView*>(view())) {
        if (list->modelColumn() != modelColumn())
            list->setModelColumn(modelColumn()); // QListView refused the column while the model did not have it
        list->setMinimumWidth(PopupFit::widthOf(*list, currentIndex()));
        layOutUpTo(*list, currentIndex());
    }
    QComboBox::showPopup();
}

void ComboBoxAutoFilter::leave()
{
    hidePopup(); // returns the keyboard focus to the box, so that close() can pass it on
    hideCompletions(m_completer);
    close();
    // If the window system has activated the list as a window, the focus returns later, and to the hidden box.
    if (!isWindow() && parentWidget() && window()->focusWidget() == this)
        parentWidget()->setFocus();
}

void ComboBoxAutoFilter::finishEditing()
{
    validateEntry(); // Compatibility: completed-without-a-match
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
    // Items are also activated by the keyboard. The list then finishes editing by its own signal.
    if (!m_itemClicked)
        return;
    m_itemClicked = false;
    if (m_click == Click::UnderWay)
        m_click = Click::EndsEditing;
    else
        finishEditing();
}

void ComboBoxAutoFilter::onCurrentIndexChanged(const QModelIndex& currentIndex)
{
    setCurrentIndex(currentIndex.row());
}

// Events

bool ComboBoxAutoFilter::event(QEvent* e)
{
    if (e->type() == QEvent::FocusIn)
        nameFieldFor(*this);
    if (e->type() == QEvent::Hide)
        hideCompletions(m_completer);
    if (!AutoFilterLineEdit::isTab(*e) || !dynamic_cast<AutoFilterLineEdit*>(lineEdit()))
        return QComboBox::event(e);
    keyPressEvent(static_cast<QKeyEvent*>(e));
    return true;
}

bool ComboBoxAutoFilter::eventFilter(QObject* watched, QEvent* e)
{
    if (watched == view()) {
        reportList(*this, *e);
        return leavesToList(*e);
    }
    if (e->type() == QEvent::MouseButtonRelease && watched == view()->viewport())
        return takesAsChoice(*watched, *e);
    return QComboBox::eventFilter(watched, e);
}

/// Passes `release` to QComboBox's container first and finishes editing after that. QComboBox emits two more signals
/// after activated(int), and a slot connected to selectionComplete() may delete the box.
bool ComboBoxAutoFilter::takesAsChoice(QObject& viewport, QEvent& release)
{
    const QPointer<ComboBoxAutoFilter> self(this);
    m_click = Click::UnderWay;
    const bool isTaken = view()->parent()->eventFilter(&viewport, &release);
    if (!self)
        return true;
    m_itemClicked = false; // a press on an item that is released elsewhere is not a click
    if (std::exchange(m_click, Click::None) == Click::EndsEditing)
        finishEditing();
    return isTaken;
}

void ComboBoxAutoFilter::inputMethodEvent(QInputMethodEvent* e)
{
    letCompleterFollow();
    QComboBox::inputMethodEvent(e);
}

void ComboBoxAutoFilter::keyPressEvent(QKeyEvent* e)
{
    letCompleterFollow();
    // Slots may delete the box.
    const QPointer<ComboBoxAutoFilter> self(this);
    const bool wasInKeyPress = std::exchange(m_isInKeyPress, true);
    if (e->key() == Qt::Key_Escape) {
        m_escapePressed = true;
        leave(); // without restoring the index. Compatibility: escape-keeps-the-index
        Q_EMIT editingCanceled();
    }
    if (self)
        QComboBox::keyPressEvent(e);
    if (self)
        m_isInKeyPress = wasInKeyPress;
}

/// Gives the focus to the parent when the box is hidden. Qt would give it to the next widget in the tab order.
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
