#pragma once

#include "internal_export_p.h"

#include <QModelIndex>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>

class QAbstractItemModel;

namespace zelmar::internal {

/// A cache of the texts of one column and role of a model's top-level rows. It is a child of the model, so that the
/// editor of the next table cell can use the texts that the previous editor has read.
///
/// Other slots may receive a signal of the model before this cache does. They may already ask for texts or change the
/// model again, so that signals arrive late, nested and out of order. The cache therefore does not rely on the signals
/// alone:
///
/// - Validity: The cached texts are used only if no change is under way and their number equals the number of rows. A
///   change is under way from the first ...AboutToBe... signal until the outermost change has ended. Meanwhile texts()
///   reads the model and caches nothing.
/// - Generation: A number increases with each change of the texts. Data derived from the texts are stored with their
///   generation and computed again when the generation has changed. changed() only asks its receivers to compare
///   generations, so a late signal does no harm.
/// - Incremental updates: A change is applied to the cached rows only if no other one happened between its beginning
///   and its end and the resulting number of rows is right. Otherwise the cache is dropped and read again when needed.
/// - Changed texts: dataChanged() has no preceding signal, and its row numbers are out of date if a slot that ran
///   earlier has moved rows. The cache therefore also reads neighbouring rows again, as far as rows have moved since
///   all texts were read.
///
/// The cache cannot know that a text has changed while other slots receive the dataChanged() signal first. A caller
/// that may run in such a slot calls refresh() for the rows it uses.
///
/// If nothing is connected to changed(), the cache is dropped at the first change. The list of a QStringListModel is
/// shared and not read row by row until the model changes.
///
/// GUI thread only.
class COMMON_UI_QT_INTERNAL_EXPORT ModelTexts : public QObject
{
    Q_OBJECT

public:
    /// A replacement of `removed` rows, beginning with row `first`, by `inserted` new ones.
    struct Change
    {
        int first = 0;
        int removed = 0;
        int inserted = 0;
    };

    /// Returns the cache for `column`, counted from 0, and `role` of `model`. Creates it if it does not exist yet. The
    /// model owns it.
    static ModelTexts& of(QAbstractItemModel& model, int column, int role);

    /// Returns the current texts of the model by row, or an empty list while the model is being destroyed. Reads the
    /// model if the cache is not valid.
    QStringList texts();

    /// Reads the text of one row again and emits changed() if it differs from the cached one. Does nothing if the row
    /// does not exist or the cache is not valid.
    void refresh(int row);

    /// Returns the generation of the current texts. Texts that are read while a change is under way have no generation
    /// of their own.
    quint64 generation() const { return m_generation; }

    /// Returns whether `generation` is that of the model's current texts. Returns false while a change is under way.
    bool isCurrent(quint64 generation) const;

    /// Returns whether a change has been announced and has not ended.
    bool isChangeUnderWay() const { return m_changesUnderWay > 0; }

    /// Returns the change that led from the texts of `generation` to the current ones, or null if it is not known.
    const Change* changeSince(quint64 generation) const;

Q_SIGNALS:
    /// Emitted before rows or columns change, the layout changes or the model is reset. changed() follows.
    void aboutToChange();
    /// Emitted when the texts may have a new generation. Slots may delete the model.
    void changed();

private:
    ModelTexts(QAbstractItemModel& model, int column, int role);

    void onAboutToChange();
    void onRowsInserted(const QModelIndex& parent, int first, int last);
    void onRowsRemoved(const QModelIndex& parent, int first, int last);
    void onRowsMoved(const QModelIndex& source, int first, int last, const QModelIndex& destination, int row);
    void onReset();
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);

    void connectModel();
    static ModelTexts* find(const QAbstractItemModel& model, int column, int role);
    bool isListenedTo() const;
    bool concerns(const QVector<int>& roles) const;

    bool isValid() const;
    bool isListOfStrings() const;
    QString textAt(int row) const;
    QStringList readRows(int first, int end) const;
    QStringList readAll() const;
    void keep(QStringList texts);
    void shareWithTwin();
    void drop();

    bool endChange();
    void takeOver(const Change& change);
    bool addsUp(const Change& change) const;
    void replaceRows(const Change& change);
    void resize(int row, int more);
    void noteMoves(const Change& change);
    Change suspectRows(int first, int last) const;
    void readAgain(const Change& rows);

    const QPointer<QAbstractItemModel> m_model; ///< null once ~QObject() of the model runs
    const int m_column;
    const int m_role;

    quint64 m_generation = 1;
    bool m_isRead = false;
    QStringList m_texts; ///< texts of m_generation, or of m_generationBefore during a change

    int m_changesUnderWay = 0;
    bool m_isAlone = false; ///< no other change has happened since the one under way has begun

    bool m_isIncremental = false; ///< m_lastChange led from m_generationBefore to m_generation
    quint64 m_generationBefore = 0;
    Change m_lastChange;

    /// The greatest distances by which rows may have moved since all texts were read: the numbers of the rows from
    /// m_firstMoved on have decreased by at most m_movedUp or increased by at most m_movedDown. Late signals carry the
    /// former row numbers.
    int m_firstMoved = 0;
    int m_movedUp = 0;
    int m_movedDown = 0;
};

} // namespace zelmar::internal
