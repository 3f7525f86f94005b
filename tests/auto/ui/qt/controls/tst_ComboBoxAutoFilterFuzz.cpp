// Makes random edits of a model that has several boxes and completers, while random slots read, edit, replace and
// delete objects or type text within these edits. After each step, compares all completion lists with a loop over the
// model.
//
// COMMON_UI_QT_FUZZ_STEPS sets the number of steps, and COMMON_UI_QT_FUZZ_SEED repeats a run.

#include "LazyList.h"
#include "TestHome.h"
#include "compat/ctkCompleter.h"
#include "modelTexts.h"
#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QApplication>
#include <QIdentityProxyModel>
#include <QLineEdit>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTest>

#include <functional>
#include <memory>
#include <random>
#include <vector>

using zelmar::ui::ComboBoxAutoFilter;

namespace {

int numberFromEnvironment(const char* name, int otherwise)
{
    bool isNumber = false;
    const int number = qEnvironmentVariableIntValue(name, &isNumber);
    return isNumber ? number : otherwise;
}

class Chance
{
public:
    explicit Chance(unsigned seed)
        : m_random(seed)
    {
    }

    int upTo(int end) { return int(m_random() % unsigned(end)); }
    bool oneIn(int count) { return upTo(count) == 0; }
    QString text(int longest)
    {
        static const QString alphabet = QStringLiteral("abcABC");
        QString text;
        for (int length = upTo(longest + 1); length > 0; --length)
            text += alphabet.at(upTo(alphabet.size()));
        return text;
    }
    template <typename Element>
    Element& oneOf(std::vector<Element>& elements)
    {
        return elements.at(std::size_t(upTo(int(elements.size()))));
    }

private:
    std::mt19937 m_random;
};

enum class Kind { Strings, Standard, Lazy, Identity, Sorted, Kinds };

/// A model and the proxies through which it is shown. Only Qt's sorting proxy does not allow slots to change its source
/// model while it emits a change.
struct Chain
{
    Kind kind = Kind::Strings;
    QPointer<QAbstractItemModel> edited;
    QPointer<QAbstractItemModel> shown;

    bool mayBeEditedInSlots() const { return kind != Kind::Sorted; }
    bool isThere() const { return edited && shown; }
};

void fillStandard(QStandardItemModel& model, Chance& chance)
{
    model.setColumnCount(chance.upTo(3)); // possibly 0
    for (int row = chance.upTo(8); row > 0; --row)
        model.appendRow({new QStandardItem(chance.text(5)), new QStandardItem(chance.text(5))});
}

QAbstractItemModel* makeEdited(Kind kind, Chance& chance)
{
    QStringList texts;
    for (int row = chance.upTo(8); row > 0; --row)
        texts += chance.text(5);
    if (kind == Kind::Strings || (kind == Kind::Identity && chance.oneIn(2)))
        return new QStringListModel(texts);
    if (kind == Kind::Lazy)
        return new LazyList(texts, 1 + chance.upTo(3));
    auto* const model = new QStandardItemModel;
    fillStandard(*model, chance);
    return model;
}

Chain makeChain(Chance& chance)
{
    Chain chain;
    chain.kind = Kind(chance.upTo(int(Kind::Kinds)));
    chain.edited = makeEdited(chain.kind, chance);
    chain.shown = chain.edited;
    QAbstractProxyModel* proxy = nullptr;
    if (chain.kind == Kind::Identity)
        proxy = new QIdentityProxyModel(chain.edited);
    else if (chain.kind == Kind::Sorted)
        proxy = new QSortFilterProxyModel(chain.edited);
    if (proxy) {
        proxy->setSourceModel(chain.edited);
        if (chain.kind == Kind::Sorted)
            proxy->sort(0);
        chain.shown = proxy;
    }
    return chain;
}

QStringList plainCompletionsOf(const ctkCompleter& completer)
{
    const QAbstractItemModel* const model = completer.sourceModel();
    QStringList texts;
    for (int row = 0; model && row < model->rowCount(); ++row) {
        const QString text =
            model->index(row, completer.completionColumn()).data(completer.completionRole()).toString();
        if (text.contains(completer.completionPrefix(), completer.caseSensitivity()))
            texts += text;
    }
    return texts;
}

} // namespace

/// An object that calls a function at each emission of a signal of any signature.
class Listener : public QObject
{
    Q_OBJECT

public:
    Listener(QObject& sender, const char* signal, QObject& parent, std::function<void()> action)
        : QObject(&parent)
        , m_action(std::move(action))
    {
        connect(&sender, signal, this, SLOT(onSignal()));
    }

private Q_SLOTS:
    void onSignal() { m_action(); }

private:
    std::function<void()> m_action;
};

/// The current model and the boxes, completers and listeners that use it.
class World : public QObject
{
public:
    explicit World(Chance& chance);
    ~World() override;

    void step();
    QString differenceInQuiet();
    int checks() const { return m_checks; }

private:
    void addBox();
    void addCompleter();
    void listenToModel();
    void listenTo(QObject& sender, const char* signal, std::function<void()> action);

    void edit();
    void editStandard(QStandardItemModel& model);
    void editThroughBox();
    void type();
    void useBox();
    void look() const;
    void replaceModel();
    void deleteModel();
    void deleteSomething(bool atOnce);

    QString difference() const;
    void onModelAboutToChange();
    void onModelChanged();
    void onBoxChanged();

    ComboBoxAutoFilter* anyBox();
    ctkCompleter* anyCompleter();
    std::vector<ctkCompleter*> completers() const;

    Chance& m_chance;
    Chain m_chain;
    std::vector<QPointer<ComboBoxAutoFilter>> m_boxes;
    std::vector<QPointer<ctkCompleter>> m_completers; ///< completers that belong to no box
    int m_depth = 0;
    bool m_isBoxInUse = false; ///< a function of a box is running, so no box may be deleted
    mutable int m_checks = 0;
};

World::World(Chance& chance)
    : m_chance(chance)
    , m_chain(makeChain(chance))
{
    for (int listeners = m_chance.upTo(3); listeners > 0; --listeners)
        listenToModel();
    for (int boxes = 1 + m_chance.upTo(3); boxes > 0; --boxes)
        addBox();
    for (int count = m_chance.upTo(3); count > 0; --count)
        addCompleter();
    for (int listeners = m_chance.upTo(2); listeners > 0; --listeners)
        listenToModel();
}

World::~World()
{
    m_depth = 100; // listeners perform no more actions
    if (m_chance.oneIn(2))
        delete m_chain.edited;
    for (const auto& box : m_boxes)
        delete box;
    delete m_chain.edited;
}

void World::addBox()
{
    m_isBoxInUse = true;
    auto* const box = new ComboBoxAutoFilter(nullptr);
    m_boxes.emplace_back(box);
    if (m_chance.oneIn(3))
        box->setModelColumn(m_chance.upTo(3));
    box->setListModel(m_chain.shown, true, QCompleter::PopupCompletion, Qt::CaseSensitivity(m_chance.upTo(2)),
                      Qt::ElideRight, Qt::MatchContains);
    if (!m_chance.oneIn(3))
        return;
    for (const char* signal : {SIGNAL(currentIndexChanged(int)), SIGNAL(editTextChanged(QString))})
        listenTo(*box, signal, [this] { onBoxChanged(); });
    listenTo(*box->completer()->model(), SIGNAL(modelReset()), [this] { look(); });
    listenTo(*box->completer()->model(), SIGNAL(modelAboutToBeReset()), [this] { look(); });
}

void World::addCompleter()
{
    auto* const completer = new ctkCompleter(m_chain.shown, this);
    m_completers.emplace_back(completer);
    completer->setModelFiltering(ctkCompleter::FilterContains);
    completer->setCaseSensitivity(Qt::CaseSensitivity(m_chance.upTo(2)));
    completer->setCompletionColumn(m_chance.upTo(3));
    static const std::vector<int> roles = {Qt::EditRole, Qt::DisplayRole, Qt::UserRole};
    completer->setCompletionRole(roles.at(std::size_t(m_chance.upTo(3))));
    completer->setCompletionPrefix(m_chance.text(2));
}

void World::listenTo(QObject& sender, const char* signal, std::function<void()> action)
{
    new Listener(sender, signal, *this, std::move(action));
}

void World::listenToModel()
{
    for (const char* signal :
         {SIGNAL(rowsAboutToBeInserted(QModelIndex, int, int)), SIGNAL(rowsAboutToBeRemoved(QModelIndex, int, int)),
          SIGNAL(rowsAboutToBeMoved(QModelIndex, int, int, QModelIndex, int)), SIGNAL(modelAboutToBeReset()),
          SIGNAL(layoutAboutToBeChanged()), SIGNAL(columnsAboutToBeInserted(QModelIndex, int, int)),
          SIGNAL(columnsAboutToBeRemoved(QModelIndex, int, int))})
        listenTo(*m_chain.shown, signal, [this] { onModelAboutToChange(); });
    for (const char* signal : {SIGNAL(rowsInserted(QModelIndex, int, int)), SIGNAL(rowsRemoved(QModelIndex, int, int)),
                               SIGNAL(rowsMoved(QModelIndex, int, int, QModelIndex, int)), SIGNAL(modelReset()),
                               SIGNAL(dataChanged(QModelIndex, QModelIndex))})
        listenTo(*m_chain.shown, signal, [this] { onModelChanged(); });
    for (const char* signal : {SIGNAL(layoutChanged()), SIGNAL(columnsInserted(QModelIndex, int, int)),
                               SIGNAL(columnsRemoved(QModelIndex, int, int)), SIGNAL(destroyed())})
        listenTo(*m_chain.shown, signal, [this] { onModelAboutToChange(); });
}

// Actions within slots

void World::onModelAboutToChange()
{
    if (++m_depth < 4 && m_chance.oneIn(2)) {
        look();
        if (m_chance.oneIn(2))
            type();
    }
    --m_depth;
}

void World::onModelChanged()
{
    onModelAboutToChange();
    if (++m_depth < 4 && m_chance.oneIn(4)) {
        if (m_chance.oneIn(8))
            deleteSomething(!m_isBoxInUse && m_chain.kind != Kind::Lazy); // a running completer fetches more rows
        else if (m_chance.oneIn(8) && !m_isBoxInUse)
            replaceModel();
        else if (m_chain.isThere() && m_chain.mayBeEditedInSlots())
            edit();
        look();
    }
    --m_depth;
}

void World::onBoxChanged()
{
    const QScopedValueRollback<bool> inUse(m_isBoxInUse, true);
    if (++m_depth < 4 && m_chance.oneIn(3)) {
        look();
        if (m_chance.oneIn(8))
            deleteSomething(false);
        else if (m_chain.isThere() && m_chain.mayBeEditedInSlots() && m_chance.oneIn(2))
            edit();
        else
            type();
    }
    --m_depth;
}

// Actions

ComboBoxAutoFilter* World::anyBox()
{
    return m_boxes.empty() ? nullptr : m_chance.oneOf(m_boxes).data();
}

std::vector<ctkCompleter*> World::completers() const
{
    std::vector<ctkCompleter*> all;
    for (const auto& box : m_boxes) {
        if (box && box->completer())
            all.push_back(static_cast<ctkCompleter*>(box->completer()));
    }
    for (const auto& completer : m_completers) {
        if (completer)
            all.push_back(completer);
    }
    return all;
}

ctkCompleter* World::anyCompleter()
{
    std::vector<ctkCompleter*> all = completers();
    return all.empty() ? nullptr : m_chance.oneOf(all);
}

void World::step()
{
    m_isBoxInUse = false;
    const int kind = m_chance.upTo(40);
    if (kind == 0)
        deleteSomething(true);
    else if (kind == 1)
        replaceModel();
    else if (kind == 2)
        deleteModel();
    else if (kind < 12)
        type();
    else if (kind < 18)
        useBox();
    else if (kind < 24)
        editThroughBox();
    else if (m_chain.isThere())
        edit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void World::edit()
{
    QAbstractItemModel& model = *m_chain.edited;
    const int rows = model.rowCount();
    const int row = m_chance.upTo(rows + 1);
    const int count = rows > row ? 1 + m_chance.upTo(qMin(3, rows - row)) : 0;
    auto* const standard = qobject_cast<QStandardItemModel*>(&model);
    const int kind = m_chance.upTo(rows > 12 ? 6 : 4);
    if (standard && (m_chance.oneIn(2) || standard->columnCount() == 0))
        return editStandard(*standard);
    if (kind >= 4)
        model.removeRows(row, count);
    else if (kind == 0)
        model.insertRows(row, 1 + m_chance.upTo(2));
    else if (kind == 1 && count > 0)
        model.removeRows(row, m_chance.oneIn(6) ? rows - row : count);
    else if (kind == 2 && m_chance.oneIn(6))
        model.sort(0, Qt::SortOrder(m_chance.upTo(2)));
    else if (kind == 2 && m_chance.oneIn(2) && count > 0)
        model.moveRows({}, row, count, {}, m_chance.upTo(rows + 1));
    else if (auto* const lazy = dynamic_cast<LazyList*>(&model); lazy && m_chance.oneIn(4))
        lazy->addUnseen({m_chance.text(5), m_chance.text(5)});
    else if (auto* const strings = qobject_cast<QStringListModel*>(&model); strings && m_chance.oneIn(8))
        strings->setStringList({m_chance.text(5), m_chance.text(5), m_chance.text(5)});
    else if (count > 0)
        model.setData(model.index(row, 0), m_chance.text(5));
}

void World::editStandard(QStandardItemModel& model)
{
    const int row = m_chance.upTo(model.rowCount() + 1);
    switch (m_chance.upTo(12)) {
    case 0:
        return m_depth > 0 ? void() : model.clear(); // QStandardItem crashes if it is cleared during an insertion
    case 1:
        model.insertColumns(m_chance.upTo(model.columnCount() + 1), 1);
        return;
    case 2:
        if (model.columnCount() > 1)
            model.removeColumns(m_chance.upTo(model.columnCount()), 1);
        return;
    case 3:
    case 4:
        return model.insertRow(row, {new QStandardItem(m_chance.text(5)), new QStandardItem(m_chance.text(5))});
    case 5:
        if (QStandardItem* const item = model.item(row, 0))
            item->appendRow(new QStandardItem(m_chance.text(3)));
        return;
    case 6: // QComboBox crashes if there are rows but no columns
        return model.columnCount() > 0 ? model.setRowCount(m_chance.upTo(8)) : void();
    default:
        const QModelIndex index = model.index(row, m_chance.upTo(3));
        if (index.isValid())
            model.setData(index, m_chance.text(5), m_chance.oneIn(4) ? Qt::UserRole : Qt::EditRole);
    }
}

void World::editThroughBox()
{
    ComboBoxAutoFilter* const box = anyBox();
    if (!box || !m_chain.isThere())
        return;
    m_isBoxInUse = true;
    const int index = m_chance.upTo(box->count() + 1);
    switch (m_chance.upTo(box->count() > 12 ? 6 : 5)) {
    case 0:
        return box->insertItem(index, m_chance.text(5));
    case 1:
        return box->setItemText(index, m_chance.text(5));
    case 2:
        return box->addItems({m_chance.text(5), m_chance.text(5)});
    case 3:
        return m_chance.oneIn(5) ? box->clear() : box->removeItem(index);
    default:
        return box->removeItem(index);
    }
}

void World::type()
{
    ctkCompleter* const completer = anyCompleter();
    if (!completer)
        return;
    const QScopedValueRollback<bool> inUse(m_isBoxInUse, true);
    const QString typed = completer->completionPrefix();
    completer->setCompletionPrefix(m_chance.oneIn(3)   ? typed.left(typed.size() - 1)
                                   : m_chance.oneIn(4) ? m_chance.text(2)
                                                       : typed.left(3) + m_chance.text(1));
}

void World::useBox()
{
    ComboBoxAutoFilter* const box = anyBox();
    if (!box)
        return;
    m_isBoxInUse = true;
    const int kind = m_chance.upTo(5);
    if (kind == 0)
        box->setCurrentIndex(m_chance.upTo(box->count() + 1) - 1);
    else if (kind == 1)
        QTest::keyClick(box, Qt::Key_A);
    else if (kind == 2)
        box->setModelColumn(m_chance.upTo(3));
    else if (kind == 3 && m_chance.oneIn(4))
        box->setCompleterAttributes(true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                                    Qt::MatchContains);
    else
        box->lineEdit()->setText(m_chance.text(2));
    if (m_chance.oneIn(2))
        box->validateEntry();
}

/// Reads all completions, as a view does. Within a slot the answers may be out of date, but they must be consistent.
void World::look() const
{
    for (const ctkCompleter* const completer : completers()) {
        completionsOf(*completer, completer->completionRole());
        // What the completer completes from, which stands between it and the model.
        const auto* const filter = qobject_cast<const QAbstractProxyModel*>(completer->QCompleter::model());
        for (int row = 0; filter && row < filter->rowCount(); ++row) {
            const QModelIndex source = filter->mapToSource(filter->index(row, 0));
            Q_ASSERT(!source.isValid() || source.row() < completer->sourceModel()->rowCount());
            filter->flags(filter->index(row, 0));
        }
        ++m_checks;
    }
}

void World::replaceModel()
{
    const QPointer<QAbstractItemModel> former(m_chain.edited);
    m_chain = makeChain(m_chance);
    m_isBoxInUse = true;
    for (int listeners = m_chance.upTo(2); listeners > 0; --listeners)
        listenToModel();
    for (const auto& completer : m_completers) {
        if (completer)
            completer->setModel(m_chain.shown);
    }
    const auto boxes = m_boxes;
    for (const auto& box : boxes) {
        if (!box || !m_chain.shown)
            continue;
        if (m_chance.oneIn(2))
            box->setListModel(m_chain.shown, true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                              Qt::MatchContains);
        else
            box->setModel(m_chain.shown);
    }
    if (former)
        former->deleteLater();
}

void World::deleteModel()
{
    delete m_chain.edited;
    look();
    replaceModel();
}

void World::deleteSomething(bool atOnce)
{
    if (m_chance.oneIn(3) && !m_completers.empty()) {
        const QPointer<ctkCompleter> completer = m_chance.oneOf(m_completers);
        if (completer)
            completer->deleteLater();
    } else if (ComboBoxAutoFilter* const box = anyBox()) {
        if (atOnce)
            delete box;
        else
            box->deleteLater();
    }
}

/// Returns a description of the first difference, or an empty string. Listeners perform no actions meanwhile.
QString World::differenceInQuiet()
{
    m_depth += 100;
    QString found = difference();
    m_depth -= 100;
    return found;
}

QString World::difference() const
{
    for (const ctkCompleter* const completer : completers()) {
        const QStringList shown = completionsOf(*completer, completer->completionRole());
        const QStringList expected = plainCompletionsOf(*completer);
        ++m_checks;
        if (shown != expected)
            return QStringLiteral("\"%1\" in column %2, role %3: shown %4 [%5], and in the model %6 [%7]")
                .arg(completer->completionPrefix())
                .arg(completer->completionColumn())
                .arg(completer->completionRole())
                .arg(shown.size())
                .arg(shown.join(QLatin1String(", ")))
                .arg(expected.size())
                .arg(expected.join(QLatin1String(", ")));
    }
    for (const auto& box : m_boxes) {
        const QString text = box && box->lineEdit() && box->count() > 0 ? box->lineEdit()->text() : QString();
        const int found = text.isEmpty() ? -1 : box->findText(text, Qt::MatchContains);
        ++m_checks;
        if (found >= 0 && (!box->validateEntry() || box->currentIndex() != found))
            return QStringLiteral("validateEntry(): \"%1\" is row %2").arg(text).arg(found);
    }
    return {};
}

class tst_ComboBoxAutoFilterFuzz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysInStepWithTheModel();
};

void tst_ComboBoxAutoFilterFuzz::staysInStepWithTheModel()
{
    const int steps = numberFromEnvironment("COMMON_UI_QT_FUZZ_STEPS", 4000);
    const int seed = numberFromEnvironment("COMMON_UI_QT_FUZZ_SEED", int(std::random_device()() >> 1));
    constexpr int stepsOfAWorld = 100;
    int checks = 0;
    qInfo("COMMON_UI_QT_FUZZ_SEED=%d COMMON_UI_QT_FUZZ_STEPS=%d", seed, steps);
    for (int start = 0; start < steps; start += stepsOfAWorld) {
        Chance chance(unsigned(seed) + unsigned(start / stepsOfAWorld));
        World world(chance);
        for (int step = start; step < start + stepsOfAWorld; ++step) {
            world.step();
            const QString difference = world.differenceInQuiet();
            QVERIFY2(difference.isEmpty(), qPrintable(QStringLiteral("step %1: %2").arg(step).arg(difference)));
        }
        checks += world.checks();
    }
    qInfo("%d checks", checks);
}

UI_TEST_MAIN(tst_ComboBoxAutoFilterFuzz)

#include "tst_ComboBoxAutoFilterFuzz.moc"
