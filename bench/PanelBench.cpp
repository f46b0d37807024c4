#include "bench/Paired.h"
#include "quickcreate/QuickCreateList.h"
#include "quickcreate/QuickCreatePanelView.h"
#include "support/FakeAppearance.h"
#include "support/FakeCreationController.h"
#include "widgets/Theme.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPixmap>

#include <algorithm>
#include <vector>

namespace blankwell {
namespace {

/// Counts how often a widget is painted.
class PaintCount : public QObject {
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count_ += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    [[nodiscard]] int count() const { return count_; }

private:
    int count_ = 0;
};

/// The panel as it is when it is shown, of the size that it has at first.
class Panel : public FakeCreationController {
public:
    Panel() {
        view_.resize(560, 600);
        view_.show();
        settle();
    }

    /// Types a letter, or takes the last one back, until the panel is painted anew.
    void type(Qt::Key key, const QString& text) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(view_.findChild<QLineEdit*>(), &press);
        settle();
    }

    /// Paints all of it into an image, without any change.
    void paint() { benchmark::DoNotOptimize(view_.grab()); }

    /// How often the list of tiles was painted so far.
    [[nodiscard]] int paints() const { return paints_.count(); }

private:
    void settle() {
        mainQueue.run();
        QCoreApplication::processEvents();
    }

    FakeAppearance appearance_;
    Theme theme_{appearance_};
    QuickCreatePanelView view_{
        {.controller = controller, .settings = settings, .mainQueue = mainQueue, .theme = theme_}};
    PaintCount paints_{*view_.findChild<QuickCreateList*>()};
};

struct Keystroke {
    Qt::Key key;
    QString text;
};

/// A search that narrows the tiles, finds nothing, and is taken back.
std::vector<Keystroke> search() {
    const Keystroke back{.key = Qt::Key_Backspace, .text = "\b"};
    return {
        {.key = Qt::Key_S, .text = "s"},
        {.key = Qt::Key_C, .text = "c"},
        {.key = Qt::Key_R, .text = "r"},
        {.key = Qt::Key_Z, .text = "z"},
        back,
        back,
        back,
        back,
    };
}

double percentile95Of(std::vector<double>& values) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(values.size() * 95 / 100);
    std::ranges::nth_element(values, place);
    return *place;
}

/// From a key press in the search field to the painted panel, beside one painting of it; the 95th
/// percentile of the former is the counter "p95".
void keystrokeToRepaint(benchmark::State& state) {
    Panel panel;
    const auto keystrokes = search();
    std::vector<double> workTimes;
    std::vector<double> floorTimes;
    for (auto each : state) {
        const auto paintsBefore = panel.paints();
        for (const auto& keystroke : keystrokes) {
            auto work = [&] { panel.type(keystroke.key, keystroke.text); };
            auto floor = [&] { panel.paint(); };
            workTimes.push_back(nanosecondsOf(work));
            floorTimes.push_back(nanosecondsOf(floor));
        }
        const auto paintsOfFloor = static_cast<int>(keystrokes.size());
        if (panel.paints() - paintsBefore <= paintsOfFloor) {
            state.SkipWithError("no key press was painted");
            return;
        }
    }
    state.counters["work"] = medianOf(workTimes);
    state.counters["floor"] = medianOf(floorTimes);
    state.counters["p95"] = percentile95Of(workTimes);
}

BENCHMARK(keystrokeToRepaint)->Iterations(100)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace blankwell

int main(int argumentCount, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argumentCount, arguments);
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
