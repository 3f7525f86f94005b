// Compares a ctkCompleter with a QCompleter on the same model: what both show, highlight and map after each prefix and
// each setter.

#include "compat/ctkCompleter.h"

#include "../textsearch/RandomTexts.h"
#include "TestHome.h"

#include <QAbstractItemView>
#include <QAbstractProxyModel>
#include <QDir>
#include <QFile>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <vector>

namespace {

/// Enough rows for the library's own search to be used instead of QCompleter's.
constexpr int manyRows = 1010;

/// A QCompleter with the same settings as a ctkCompleter.
class Peer : public QCompleter
{
public:
    using QCompleter::QCompleter;

    void setModelFiltering(ctkCompleter::ModelFiltering filtering)
    {
        if (filtering == m_filtering)
            return;
        m_filtering = filtering;
        setFilterMode(wantedMode());
    }

    void setCompletionMode(CompletionMode mode)
    {
        QCompleter::setCompletionMode(mode);
        if (filterMode() == wantedMode())
            return;
        setFilterMode(wantedMode());
        setCompletionPrefix(completionPrefix());
    }

private:
    Qt::MatchFlag wantedMode() const
    {
        const bool contains = m_filtering == ctkCompleter::FilterContains && completionMode() != InlineCompletion;
        return contains ? Qt::MatchContains : Qt::MatchStartsWith;
    }

    ctkCompleter::ModelFiltering m_filtering = ctkCompleter::FilterStartsWith;
};

/// A completer for the rows of a tree. A path is the texts from the top-level row on, separated by slashes. It
/// splits only texts that contain a slash.
template <typename Completer>
class PathCompleter : public Completer
{
public:
    using Completer::Completer;

    QStringList splitPath(const QString& path) const override
    {
        return path.contains(QLatin1Char('/')) ? path.split(QLatin1Char('/')) : Completer::splitPath(path);
    }
    QString pathFromIndex(const QModelIndex& index) const override
    {
        const QString text = index.data(this->completionRole()).toString();
        return index.parent().isValid() ? pathFromIndex(index.parent()) + QLatin1Char('/') + text : text;
    }
};

QString rowPath(const QModelIndex& index)
{
    if (!index.isValid())
        return QString();
    return rowPath(index.parent()) + QStringLiteral("/%1:%2").arg(index.row()).arg(index.column());
}

/// Returns the text of a completion, its tool tip, its flags, and the row that it comes from.
QString shown(const QCompleter& completer, const QAbstractItemModel* given, const QModelIndex& index)
{
    const QModelIndex source = qobject_cast<QAbstractProxyModel*>(completer.completionModel())->mapToSource(index);
    return QStringLiteral("%1|%2|%3|%4|%5")
        .arg(index.data(completer.completionRole()).toString(), index.data(Qt::ToolTipRole).toString())
        .arg(int(index.flags()))
        .arg(rowPath(source), source.model() == given ? QString() : QStringLiteral("of another model"));
}

QStringList describe(const QCompleter& completer, const QAbstractItemModel* given)
{
    const QAbstractItemModel& list = *completer.completionModel();
    QStringList lines = {QStringLiteral("%1 completions of \"%2\", %3 rows, %4 columns")
                             .arg(completer.completionCount())
                             .arg(completer.completionPrefix())
                             .arg(list.rowCount())
                             .arg(list.columnCount()),
                         QStringLiteral("current row %1 at %2:%3, \"%4\"")
                             .arg(completer.currentRow())
                             .arg(completer.currentIndex().row())
                             .arg(completer.currentIndex().column())
                             .arg(completer.currentCompletion()),
                         list.hasChildren() ? QStringLiteral("rows") : QStringLiteral("no rows")};
    // Of a long list, only some of the rows in between are compared.
    const int rows = list.rowCount();
    for (int row = 0; row < rows; row += row < 20 || row > rows - 20 ? 1 : 13)
        lines += shown(completer, given, list.index(row, completer.completionColumn()));
    return lines;
}

#define COMPARE_COMPLETERS(ours, peer)                                                                                 \
    do {                                                                                                               \
        QCOMPARE((ours).model(), (peer).model());                                                                      \
        QCOMPARE(describe(ours, (ours).model()), describe(peer, (peer).model()));                                      \
        QCOMPARE((ours).modelSorting(), (peer).modelSorting());                                                        \
        QCOMPARE((ours).caseSensitivity(), (peer).caseSensitivity());                                                  \
        QCOMPARE((ours).completionRole(), (peer).completionRole());                                                    \
    } while (false)

// Models

QStringList colours()
{
    return {"Blue", "blue", "Red", "Value", "", "Light Blue", "bluish", "alue", "Blue", "/lue/a", "LUE"};
}

/// Returns the colours repeatedly, each with a number appended.
QStringList manyColours()
{
    QStringList texts;
    for (int row = 0; row < manyRows; ++row)
        texts += colours().at(row % colours().size()) + QString::number(row % 97);
    return texts;
}

std::unique_ptr<QStandardItemModel> makeItems(const QStringList& texts)
{
    auto model = std::make_unique<QStandardItemModel>(0, 3);
    for (int row = 0; row < texts.size(); ++row) {
        auto* const other = new QStandardItem(texts.at(texts.size() - 1 - row));
        other->setData(QStringLiteral("user %1").arg(texts.at(row)), Qt::UserRole);
        model->appendRow({new QStandardItem(texts.at(row)), other, new QStandardItem(QString::number(row))});
        model->item(row)->setToolTip(QStringLiteral("tip of %1").arg(row));
    }
    return model;
}

std::unique_ptr<QStandardItemModel> makeItemsForNobody(const QStringList& texts)
{
    auto model = makeItems(texts);
    for (int row = 0; row < texts.size(); row += 5)
        model->item(row)->setFlags(row % 2 == 0 ? Qt::ItemIsEnabled : Qt::NoItemFlags);
    return model;
}

std::unique_ptr<QStandardItemModel> makeTree(const QStringList& texts)
{
    auto model = makeItems(texts);
    for (int row = 0; row < texts.size(); ++row) {
        for (const QString& text : colours())
            model->item(row)->appendRow(new QStandardItem(text + QString::number(row)));
    }
    return model;
}

/// A model that fetches a few hundred rows at a time.
class LazyModel : public QStringListModel
{
public:
    explicit LazyModel(const QStringList& texts)
        : m_rest(texts)
    {
    }
    bool canFetchMore(const QModelIndex& parent) const override { return !parent.isValid() && !m_rest.isEmpty(); }
    void fetchMore(const QModelIndex& /*parent*/) override
    {
        const QStringList more = m_rest.mid(0, 300);
        m_rest = m_rest.mid(300);
        const int row = rowCount();
        insertRows(row, more.size());
        for (int i = 0; i < more.size(); ++i)
            setData(index(row + i), more.at(i));
    }

private:
    QStringList m_rest;
};

QStringList sorted(QStringList texts, Qt::CaseSensitivity caseSensitivity)
{
    texts.sort(caseSensitivity);
    return texts;
}

using ModelPtr = std::unique_ptr<QAbstractItemModel>;

std::unique_ptr<QSortFilterProxyModel> makeProxy()
{
    auto proxy = std::make_unique<QSortFilterProxyModel>();
    auto* const list = new QStringListModel(manyColours(), proxy.get());
    proxy->setSourceModel(list);
    proxy->sort(0);
    return proxy;
}

struct Subject
{
    const char* name;
    std::function<ModelPtr()> make;
    QCompleter::ModelSorting sorting = QCompleter::UnsortedModel;
    int column = 0;
    int role = Qt::EditRole;
};

std::vector<Subject> subjects()
{
    const auto byCase = QCompleter::CaseSensitivelySortedModel;
    const auto anyCase = QCompleter::CaseInsensitivelySortedModel;
    return {
        {"nothing", [] { return std::make_unique<QStringListModel>(); }},
        {"list", [] { return std::make_unique<QStringListModel>(colours()); }},
        {"long list", [] { return std::make_unique<QStringListModel>(manyColours()); }},
        {"sorted list", [] { return std::make_unique<QStringListModel>(sorted(manyColours(), Qt::CaseSensitive)); },
         byCase},
        {"list sorted in any case",
         [] { return std::make_unique<QStringListModel>(sorted(manyColours(), Qt::CaseInsensitive)); }, anyCase},
        {"items", [] { return makeItems(colours()); }},
        {"many items", [] { return makeItems(manyColours()); }},
        {"items, not all for picking", [] { return makeItemsForNobody(colours()); }},
        {"second column, other role", [] { return makeItems(manyColours()); }, QCompleter::UnsortedModel, 1,
         Qt::UserRole},
        {"column that is not there", [] { return makeItems(manyColours()); }, QCompleter::UnsortedModel, 7},
        {"tree", [] { return makeTree(colours()); }},
        {"large tree", [] { return makeTree(manyColours()); }},
        {"fetched by and by", [] { return std::make_unique<LazyModel>(manyColours()); }},
        {"proxy model", [] { return makeProxy(); }},
    };
}

const Subject& subjectOf(const QString& name)
{
    static const std::vector<Subject> all = subjects();
    for (const Subject& subject : all) {
        if (QLatin1String(subject.name) == name)
            return subject;
    }
    qFatal("no such subject");
}

QString nameOf(QCompleter::CompletionMode mode)
{
    return mode == QCompleter::PopupCompletion    ? QStringLiteral("popup")
           : mode == QCompleter::InlineCompletion ? QStringLiteral("in the line")
                                                  : QStringLiteral("unfiltered popup");
}

template <typename Completer>
void setUp(Completer& completer, const Subject& subject)
{
    completer.setModelSorting(subject.sorting);
    completer.setCompletionColumn(subject.column);
    completer.setCompletionRole(subject.role);
}

template <typename Action>
void forBoth(ctkCompleter& ours, Peer& peer, Action action)
{
    action(ours);
    action(peer);
}

constexpr QCompleter::CompletionMode modes[] = {QCompleter::PopupCompletion, QCompleter::InlineCompletion,
                                                QCompleter::UnfilteredPopupCompletion};

} // namespace

class tst_ctkCompleterBesideQCompleter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheSame_data();
    void showsTheSame();
    void doesTheSameInAnyOrder_data();
    void doesTheSameInAnyOrder();
    void keepsTheRowInAnotherMode();
    void completesPaths();
    void opensTheSamePopup_data();
    void opensTheSamePopup();
};

void tst_ctkCompleterBesideQCompleter::showsTheSame_data()
{
    QTest::addColumn<QString>("model");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("anyCase");
    QTest::addColumn<bool>("contains");

    for (const Subject& subject : subjects()) {
        for (const auto mode : modes) {
            for (const bool anyCase : {false, true}) {
                for (const bool contains : {false, true}) {
                    const QString name = QStringLiteral("%1, %2, %3, %4")
                                             .arg(QLatin1String(subject.name), nameOf(mode),
                                                  anyCase ? QStringLiteral("any case") : QStringLiteral("its case"),
                                                  contains ? QStringLiteral("contains") : QStringLiteral("begins"));
                    QTest::newRow(qPrintable(name)) << subject.name << int(mode) << anyCase << contains;
                }
            }
        }
    }
}

void tst_ctkCompleterBesideQCompleter::showsTheSame()
{
    QFETCH(QString, model);
    QFETCH(int, mode);
    QFETCH(bool, anyCase);
    QFETCH(bool, contains);

    const Subject& subject = subjectOf(model);
    const ModelPtr source = subject.make();
    PathCompleter<ctkCompleter> ours(source.get());
    PathCompleter<Peer> peer(source.get());
    forBoth(ours, peer, [&](auto& completer) {
        setUp(completer, subject);
        completer.setModelFiltering(contains ? ctkCompleter::FilterContains : ctkCompleter::FilterStartsWith);
        completer.setCompletionMode(QCompleter::CompletionMode(mode));
        completer.setCaseSensitivity(anyCase ? Qt::CaseInsensitive : Qt::CaseSensitive);
    });
    COMPARE_COMPLETERS(ours, peer);
    for (const QString prefix : {"B", "Bl", "Blue", "Bl", "lue", "lUe1", "", "7", "none", "u", "Blue/", "Blue1/Re",
                                 "blue1/lue", "Blue1", "user L", "/", "Red2", "e"}) {
        forBoth(ours, peer, [&](auto& completer) { completer.setCompletionPrefix(prefix); });
        COMPARE_COMPLETERS(ours, peer);
        forBoth(ours, peer, [&](auto& completer) { completer.setCurrentRow(3); });
        QCOMPARE(ours.currentRow(), peer.currentRow());
        QCOMPARE(ours.currentCompletion(), peer.currentCompletion());
    }
}

namespace {

/// A pair of completers and the random actions that are applied to both.
class Session
{
public:
    Session(const Subject& subject, unsigned seed)
        : m_random(seed)
        , m_models{subject.make(), subject.make()}
        , m_ours(m_models[0].get())
        , m_peer(m_models[0].get())
    {
        forBoth(m_ours, m_peer, [&](auto& completer) { setUp(completer, subject); });
    }

    ctkCompleter& ours() { return m_ours; }
    Peer& peer() { return m_peer; }

    /// Performs a random action and returns its description.
    QString step()
    {
        const int kind = m_random.upTo(12);
        if (kind < 5)
            return type();
        if (kind < 8)
            return changeModel();
        return set(kind - 8);
    }

private:
    QString type()
    {
        if (m_random.upTo(3) == 0)
            m_typed.chop(1 + m_random.upTo(2));
        else
            m_typed += QStringLiteral("BlueR 1/adL").at(m_random.upTo(11));
        forBoth(m_ours, m_peer, [&](auto& completer) { completer.setCompletionPrefix(m_typed); });
        return QStringLiteral("prefix ") + m_typed;
    }

    QString changeModel()
    {
        QAbstractItemModel* const model = m_ours.model();
        const int kind = m_random.upTo(6);
        const int row = model && model->rowCount() > 0 ? m_random.upTo(model->rowCount()) : 0;
        if (!model || kind == 5) {
            const int which = m_random.upTo(3);
            forBoth(m_ours, m_peer,
                    [&](auto& completer) { completer.setModel(which == 2 ? nullptr : m_models[which].get()); });
            return QStringLiteral("setModel %1").arg(which);
        }
        if (kind == 0)
            model->setData(model->index(row, 0), QStringLiteral("new Blue%1").arg(row));
        else if (kind == 1)
            model->insertRows(row, 2);
        else if (kind == 2)
            model->removeRows(row, 2);
        else if (kind == 3)
            model->sort(0, row % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
        else if (auto* const items = qobject_cast<QStandardItemModel*>(model))
            setFlags(*items, row);
        return QStringLiteral("change %1 at %2").arg(kind).arg(row);
    }

    void setFlags(QStandardItemModel& items, int row)
    {
        // QCompleter leaves out what cannot be selected, a long list keeps every row that contains the text.
        if (m_random.upTo(4) == 0 && items.item(row) && items.rowCount() < 500)
            items.item(row)->setSelectable(!items.item(row)->isSelectable());
    }

    QString set(int kind)
    {
        const int value = m_random.upTo(3);
        forBoth(m_ours, m_peer, [&](auto& completer) {
            if (kind == 0)
                completer.setCompletionMode(modes[value]);
            else if (kind == 1)
                completer.setModelFiltering(ctkCompleter::ModelFiltering(qMin(value, 1)));
            else if (kind == 2)
                completer.setCurrentRow(value * 4);
            else
                setRarely(completer, value);
        });
        m_turn += kind == 3;
        return QStringLiteral("set %1 to %2 (%3)").arg(kind).arg(value).arg(m_turn);
    }

    template <typename Completer>
    void setRarely(Completer& completer, int value)
    {
        if (m_turn % 4 == 0)
            completer.setCaseSensitivity(value == 0 ? Qt::CaseSensitive : Qt::CaseInsensitive);
        else if (m_turn % 4 == 1)
            completer.setCompletionColumn(value % 2);
        else if (m_turn % 4 == 2)
            completer.setCompletionRole(value == 0 ? int(Qt::UserRole) : int(Qt::EditRole));
        else
            completer.setModelSorting(QCompleter::ModelSorting(0)); // other values require a sorted model
    }

    RandomTexts m_random;
    ModelPtr m_models[2];
    PathCompleter<ctkCompleter> m_ours;
    PathCompleter<Peer> m_peer;
    QString m_typed;
    int m_turn = 0;
};

} // namespace

void tst_ctkCompleterBesideQCompleter::doesTheSameInAnyOrder_data()
{
    QTest::addColumn<QString>("model");
    for (const char* const model : {"list", "long list", "items", "many items", "items, not all for picking", "tree",
                                    "fetched by and by", "proxy model"})
        QTest::newRow(model) << model;
}

void tst_ctkCompleterBesideQCompleter::doesTheSameInAnyOrder()
{
    QFETCH(QString, model);

    for (unsigned seed = 1; seed <= 5; ++seed) {
        Session session(subjectOf(model), seed);
        QStringList steps;
        for (int step = 0; step < 50; ++step) {
            steps += session.step();
            const QStringList ours = describe(session.ours(), session.ours().model());
            const QStringList peer = describe(session.peer(), session.peer().model());
            if (ours != peer)
                qInfo("seed %u: %s", seed, qPrintable(steps.join(QStringLiteral("; "))));
            QCOMPARE(ours, peer);
            QCOMPARE(session.ours().model(), session.peer().model());
        }
    }
}

void tst_ctkCompleterBesideQCompleter::keepsTheRowInAnotherMode()
{
    for (const QStringList& texts : {colours(), manyColours()}) {
        QStringListModel model(texts);
        ctkCompleter ours(&model);
        Peer peer(&model);
        forBoth(ours, peer, [](auto& completer) {
            completer.setModelFiltering(ctkCompleter::FilterContains);
            completer.setCompletionPrefix(QStringLiteral("lue"));
            completer.setCurrentRow(2);
        });
        COMPARE_COMPLETERS(ours, peer);
        for (const auto mode : {QCompleter::UnfilteredPopupCompletion, QCompleter::PopupCompletion}) {
            forBoth(ours, peer, [mode](auto& completer) { completer.setCompletionMode(mode); });
            QCOMPARE(ours.currentRow(), 2);
            COMPARE_COMPLETERS(ours, peer);
        }
    }
}

void tst_ctkCompleterBesideQCompleter::completesPaths()
{
    const QTemporaryDir folder;
    for (const char* const name : {"alpha", "alphabet", "beta"})
        QVERIFY(QDir(folder.path()).mkpath(QStringLiteral("%1/deep").arg(QLatin1String(name))));
    QFile file(folder.filePath(QStringLiteral("alpine.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QFileSystemModel files;
    files.setRootPath(folder.path());
    QTRY_COMPARE(files.rowCount(files.index(folder.path())), 4);

    for (const auto filtering : {ctkCompleter::FilterStartsWith, ctkCompleter::FilterContains}) {
        ctkCompleter ours;
        Peer peer;
        forBoth(ours, peer, [&](auto& completer) {
            completer.setModelFiltering(filtering);
            completer.setModel(&files);
        });
        for (const char* const typed : {"/a", "/alpha", "/pha", "/beta", "/", "/none", "/alpha/d"}) {
            const QString prefix = folder.path() + QLatin1String(typed);
            forBoth(ours, peer, [&](auto& completer) { completer.setCompletionPrefix(prefix); });
            QCOMPARE(ours.completionRole(), int(QFileSystemModel::FileNameRole));
            QTRY_COMPARE(describe(ours, ours.model()), describe(peer, peer.model()));
        }
        QStringListModel list(manyColours());
        forBoth(ours, peer, [&](auto& completer) {
            completer.setModel(&list);
            completer.setCompletionPrefix(QStringLiteral("lue"));
        });
        COMPARE_COMPLETERS(ours, peer);
    }
}

namespace {

struct Popup
{
    QStringList rows;
    QSize size;
    int current;
    int scrolled;
};

Popup popupOf(const QCompleter& completer)
{
    const QAbstractItemView& list = *completer.popup();
    return {describe(completer, nullptr), list.size(), list.currentIndex().row(), list.verticalScrollBar()->value()};
}

} // namespace

void tst_ctkCompleterBesideQCompleter::opensTheSamePopup_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("added");

    QTest::newRow("list") << colours() << "vAlu"
                          << "a new value";
    QTest::newRow("long list") << manyColours() << "vAlu"
                               << "a new value";
    QTest::newRow("few of a long list") << manyColours() << "ght blue12"
                                        << "a new light blue12";
}

void tst_ctkCompleterBesideQCompleter::opensTheSamePopup()
{
    QFETCH(QStringList, texts);
    QFETCH(QString, typed);
    QFETCH(QString, added);

    QStringListModel model(texts);
    std::vector<Popup> popups;
    const auto use = [&](auto& completer) {
        QLineEdit edit;
        edit.setCompleter(&completer);
        edit.show();
        QVERIFY(QTest::qWaitForWindowActive(&edit));
        completer.setModelFiltering(ctkCompleter::FilterContains);
        completer.setMaxVisibleItems(6);
        QTest::keyClicks(&edit, typed + QLatin1Char('x'));
        QVERIFY(!completer.popup()->isVisible());
        completer.setCaseSensitivity(Qt::CaseInsensitive);
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QTRY_VERIFY(completer.popup()->isVisible());
        popups.push_back(popupOf(completer));
        model.insertRows(0, 1); // the new row does not match
        popups.push_back(popupOf(completer));
        model.removeRows(0, 1);
        model.insertRows(3, 1);
        model.setData(model.index(3), added);
        model.insertRows(model.rowCount(), 1);
        popups.push_back(popupOf(completer));
        QTest::keyClick(completer.popup(), Qt::Key_Up);
        popups.push_back(popupOf(completer));
        QTest::keyClick(completer.popup(), Qt::Key_Return);
        QVERIFY(!completer.popup()->isVisible());
        popups.push_back({{edit.text()}, {}, 0, 0});
        model.setStringList(texts);
    };
    ctkCompleter ours(&model);
    use(ours);
    const std::vector<Popup> oursSeen = std::exchange(popups, {});
    Peer peer(&model);
    use(peer);
    QCOMPARE(oursSeen.size(), popups.size());
    for (std::size_t i = 0; i < popups.size(); ++i) {
        QCOMPARE(oursSeen[i].rows, popups[i].rows);
        QCOMPARE(oursSeen[i].size, popups[i].size);
        QCOMPARE(oursSeen[i].current, popups[i].current);
        QCOMPARE(oursSeen[i].scrolled, popups[i].scrolled);
    }
}

UI_TEST_MAIN(tst_ctkCompleterBesideQCompleter)

#include "tst_ctkCompleterBesideQCompleter.moc"
