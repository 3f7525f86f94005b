// Compares typing into a ComboBoxAutoFilter over a million names with a QCompleter with Qt::MatchContains on the same
// model. A word is typed and deleted character by character, and then a word is typed that no name contains. A
// keystroke sets the new prefix and reads the number of remaining rows.

#include "ui/qt/controls/ComboBoxAutoFilter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QStringListModel>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

using zelmar::ui::ComboBoxAutoFilter;

namespace {

constexpr int nameCount = 1000000;
constexpr int rounds = 5;

QStringList makeNames()
{
    const QStringList words =
        QString::fromUtf8("pressure temperature valve inlet outlet pump sensor motor speed torque Kühlwasser Öldruck "
                          "Größe Übertemperatur vitesse température débit réservoir давление насос клапан "
                          "θερμοκρασία πίεση flow level voltage current phase left right upper lower front rear "
                          "main spare cabin engine gear rotor stator bearing filter tank line bus node channel "
                          "offset gain raw mean max min rms")
            .split(QLatin1Char(' '));
    std::mt19937 random(1);
    const auto upTo = [&random](std::size_t end) { return int(random() % end); };
    QStringList names;
    names.reserve(nameCount);
    while (names.size() < nameCount) {
        const int length = 15 + upTo(26);
        QString name;
        while (name.size() < length) {
            const QString& word = words[upTo(std::size_t(words.size()))];
            const int style = upTo(4);
            name += style == 0 ? word.toUpper() : style == 1 ? word : word.left(1).toUpper() + word.mid(1);
            name += upTo(3) == 0 ? QString::number(upTo(1000)) : QStringLiteral("_");
        }
        names += name.left(length);
    }
    return names;
}

double milliseconds(const std::function<void()>& step)
{
    QElapsedTimer timer;
    timer.start();
    step();
    return double(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + std::ptrdiff_t(times.size() / 2), times.end());
    return times[times.size() / 2];
}

double readOnce(const QAbstractItemModel& model)
{
    qint64 letters = 0;
    const double time = milliseconds([&] {
        for (int row = 0; row < model.rowCount(); ++row)
            letters += model.data(model.index(row, 0), Qt::EditRole).toString().size();
    });
    if (letters == 0)
        std::printf("nothing was read\n");
    return time;
}

double lookOnce(const QStringList& names)
{
    ushort bits = 0;
    const double time = milliseconds([&] {
        for (const QString& name : names)
            bits |= name.at(0).unicode();
    });
    if (bits == 0)
        std::printf("nothing was looked at\n");
    return time;
}

/// Returns a lower bound for the duration of a session in milliseconds: reading each text from the model, unless the
/// model shares its list, and reading one character of each text for the first character of either word.
double leastOf(bool items, double pass, const QStringList& names)
{
    return (items ? pass : 0) + 2 * lookOnce(names);
}

QStringList prefixes(const QString& word, const QString& unknown)
{
    QStringList typed;
    for (int length = 1; length <= word.size(); ++length)
        typed += word.left(length);
    for (int length = word.size() - 1; length >= 1; --length)
        typed += word.left(length);
    for (int length = 1; length <= unknown.size(); ++length)
        typed += unknown.left(length);
    return typed;
}

struct Session
{
    std::vector<double> keys; ///< duration of each keystroke in milliseconds
    std::vector<int> rows;    ///< number of rows after each keystroke

    double total() const { return std::accumulate(keys.begin(), keys.end(), 0.0); }
};

Session type(QCompleter& completer, const QStringList& texts)
{
    Session session;
    for (const QString& text : texts) {
        session.keys.push_back(milliseconds([&] {
            completer.setCompletionPrefix(text);
            session.rows.push_back(completer.completionModel()->rowCount());
        }));
    }
    return session;
}

std::unique_ptr<ComboBoxAutoFilter> makeBox(QAbstractItemModel& model, Qt::CaseSensitivity caseSensitivity)
{
    auto box = std::make_unique<ComboBoxAutoFilter>(nullptr);
    box->setListModel(&model, true, QCompleter::PopupCompletion, caseSensitivity, Qt::ElideRight, Qt::MatchContains);
    return box;
}

std::unique_ptr<QAbstractItemModel> makeModel(const QStringList& names, bool items)
{
    if (!items)
        return std::make_unique<QStringListModel>(names);
    auto model = std::make_unique<QStandardItemModel>(names.size(), 1);
    for (int row = 0; row < names.size(); ++row)
        model->setItem(row, new QStandardItem(names[row]));
    return model;
}

/// Medians of the durations of sessions in milliseconds.
struct Totals
{
    double ours = 0;
    double peer = 0;
};

Totals compareSessions(const QStringList& names, bool items, const QString& word, Qt::CaseSensitivity caseSensitivity)
{
    const QStringList texts = prefixes(word, QStringLiteral("preservation"));
    std::vector<double> ourTotals;
    std::vector<double> peerTotals;
    std::vector<double> passes;
    std::vector<double> firstKeys;
    std::vector<double> slowestOthers;
    std::vector<double> leasts;
    bool same = true;
    for (int round = 0; round < rounds; ++round) {
        const auto model = makeModel(names, items); // a new model, whose texts are not cached yet
        passes.push_back(readOnce(*model));
        const auto box = makeBox(*model, caseSensitivity);
        const Session ours = type(*box->completer(), texts);

        QCompleter peer(model.get());
        peer.setFilterMode(Qt::MatchContains);
        peer.setCaseSensitivity(caseSensitivity);
        const Session peers = type(peer, texts);

        leasts.push_back(leastOf(items, passes.back(), names));
        same = same && ours.rows == peers.rows;
        ourTotals.push_back(ours.total());
        peerTotals.push_back(peers.total());
        firstKeys.push_back(ours.keys.front());
        slowestOthers.push_back(*std::max_element(ours.keys.begin() + 1, ours.keys.end()));
    }
    std::printf("%-11s %-11s case %-7s  ours %6.1f ms  peer %7.1f ms  %4.1f times faster, at most %4.1f   first key "
                "%5.1f ms, %.2f passes   slowest other key %4.1f ms%s\n",
                items ? "item model" : "string list", qPrintable(word),
                caseSensitivity == Qt::CaseSensitive ? "told" : "ignored", median(ourTotals), median(peerTotals),
                median(peerTotals) / median(ourTotals), median(peerTotals) / median(leasts), median(firstKeys),
                median(firstKeys) / median(passes), median(slowestOthers), same ? "" : "   OTHER ROWS");
    return {median(ourTotals), median(peerTotals)};
}

void compareAllSessions(const QStringList& names, bool items)
{
    Totals all;
    for (const char* word : {"temperature", "valve", "engine"}) {
        for (const auto caseSensitivity : {Qt::CaseInsensitive, Qt::CaseSensitive}) {
            const Totals totals = compareSessions(names, items, QString::fromLatin1(word), caseSensitivity);
            all.ours += totals.ours;
            all.peer += totals.peer;
        }
    }
    std::printf("%-11s all of it: ours %.1f ms  peer %.1f ms  %.1f times faster\n",
                items ? "item model" : "string list", all.ours, all.peer, all.peer / all.ours);
}

/// Compares validateEntry() with QComboBox::findText(), which finds the same item, and measures showPopup().
void measureLookUps(const QStringList& names)
{
    QStringListModel model(names);
    const auto box = makeBox(model, Qt::CaseInsensitive);
    box->show();
    const auto validate = [&](const QString& text) {
        box->lineEdit()->setText(text);
        return milliseconds([&] { box->validateEntry(); });
    };
    const QString unknown = QStringLiteral("no such name");
    const double first = validate(unknown);
    const double later = validate(unknown);
    const double plain = milliseconds([&] { box->findText(unknown, Qt::MatchContains); });
    std::printf("validateEntry, no such name: %.1f ms, then %.1f ms; findText %.1f ms\n", first, later, plain);
    for (const int row : {10, 500000, 999999}) {
        box->setEditText(names[row]);
        const double time = milliseconds([&] { box->showPopup(); });
        std::printf("showPopup with the text of row %d: %.1f ms\n", row, time);
        box->hidePopup();
        QApplication::processEvents();
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList names = makeNames();
    for (const bool items : {false, true})
        compareAllSessions(names, items);
    measureLookUps(names);
    return 0;
}
