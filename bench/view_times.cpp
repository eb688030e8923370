// How quickly a drawing comes onto the screen and follows the mouse, and what its display lists weigh:
// veloxa_view_times DRAWING prints one JSON object. Times are in seconds, "cpu" counts all threads of the process.
#include "bench/support/cpu_clock.h"
#include "bench/support/open_drawing.h"
#include "desktop/view/drawing_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <QWheelEvent>

#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace
{

constexpr QSize kWindow{1600, 1000};
constexpr int kSteps = 60;

struct Times
{
    double wall = 0.0;
    double cpu = 0.0;
};

Times timed(const std::function<void()>& work)
{
    const bench::CpuClock cpu;
    QElapsedTimer wall;
    wall.start();
    work();
    return {static_cast<double>(wall.nsecsElapsed()) * 1e-9, cpu.seconds()};
}

size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void waitUntilSharp(const desktop::DrawingView& view)
{
    QEventLoop loop;
    QObject::connect(&view, &desktop::DrawingView::sharp, &loop, &QEventLoop::quit);
    if (!view.isSharp())
        loop.exec();
}

void pause(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Processor time of this thread, which answers the user: what other programs and the painting threads take meanwhile
/// does not count.
double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

Times sharp(desktop::DrawingView& view)
{
    std::vector<Times> times;
    for (int i = 0; i < 7; ++i)
        times.push_back(timed(
            [&]
            {
                view.setBackground(i % 2 == 0 ? 0x101010 : 0x111111);
                waitUntilSharp(view);
                view.repaint();
            }));
    std::sort(times.begin(), times.end(), [](const Times& a, const Times& b) { return a.wall < b.wall; });
    return times[times.size() / 2];
}

/// What a wheel step or a move of the mouse costs until it is on the screen, one after the other as a user does it.
std::vector<Times> answers(desktop::DrawingView& view, const std::function<void(int step)>& act, int between)
{
    std::vector<Times> times;
    for (int step = 0; step < kSteps; ++step)
    {
        const double before = threadSeconds();
        Times answer = timed(
            [&]
            {
                act(step);
                view.repaint();
            });
        answer.cpu = threadSeconds() - before;
        times.push_back(answer);
        pause(between);
    }
    return times;
}

void wheel(desktop::DrawingView& view, int delta)
{
    const QPointF at{kWindow.width() / 3.0, kWindow.height() / 3.0};
    QWheelEvent event{at, at, {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false};
    QCoreApplication::sendEvent(&view, &event);
}

void print(const char* name, const std::vector<Times>& times)
{
    const auto show = [&](const char* kind, double Times::*part)
    {
        std::vector<double> sorted;
        for (const Times& each : times)
            sorted.push_back(each.*part);
        std::sort(sorted.begin(), sorted.end());
        std::printf("\"%s%s median\": %.6f, \"%s%s worst\": %.6f, ", name, kind, sorted[sorted.size() / 2], name, kind,
                    sorted.back());
    };
    show("", &Times::wall);
    show(" cpu", &Times::cpu);
}

size_t entitiesOf(const picture::DrawingLists& lists)
{
    size_t sum = 0;
    for (uint32_t i = 0; i < lists.count(); ++i)
        sum += lists.list(i).items().size();
    return sum;
}

size_t verticesOf(const picture::DrawingLists& lists)
{
    size_t sum = 0;
    for (uint32_t i = 0; i < lists.count(); ++i)
        sum += lists.list(i).vertexCount();
    return sum;
}

void measure(const std::string& path)
{
    const bench::CpuClock sinceStart;
    QElapsedTimer wall;
    wall.start();
    bench::OpenDrawing open{path};
    const double loaded = static_cast<double>(wall.nsecsElapsed()) * 1e-9;
    const size_t before = heapInUse();
    auto scene =
        std::make_shared<desktop::Scene>(open.database(), std::vector<std::string>{VELOXA_SYMBOLS, VELOXA_PROGRAMS});
    const Times built = timed([&] { scene->build(); });
    malloc_trim(0);
    const size_t heap = heapInUse() - before;
    desktop::DrawingView view;
    view.resize(kWindow);
    view.show();
    view.setScene(scene);
    view.repaint();
    const double shown = static_cast<double>(wall.nsecsElapsed()) * 1e-9;
    waitUntilSharp(view);
    view.repaint();
    const double first = static_cast<double>(wall.nsecsElapsed()) * 1e-9;
    const double firstCpu = sinceStart.seconds();
    const Times again = sharp(view);
    std::printf("{\"entities\": %zu, \"vertices\": %zu, \"list bytes\": %zu, \"heap\": %zu, ",
                entitiesOf(scene->lists()), verticesOf(scene->lists()), scene->lists().bytes(), heap);
    std::printf("\"load\": %.4f, \"build\": %.4f, \"build cpu\": %.4f, \"shown\": %.4f, \"first sharp\": %.4f, "
                "\"first cpu\": %.4f, \"sharp\": %.4f, \"sharp cpu\": %.4f, ",
                loaded, built.wall, built.cpu, shown, first, firstCpu, again.wall, again.cpu);
    print("wheel", answers(
                       view, [&](int step) { wheel(view, step % 20 < 10 ? 120 : -120); }, 30));
    print("slow wheel", answers(
                            view, [&](int step) { wheel(view, step % 20 < 10 ? 120 : -120); }, 400));
    view.zoomExtents();
    waitUntilSharp(view);
    print("drag", answers(
                      view,
                      [&](int step) {
                          view.pan({step % 40 < 20 ? 17.0 : -17.0, 9.0});
                      },
                      15));
    std::printf("\"window\": \"%d x %d\"}\n", kWindow.width(), kWindow.height());
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application{argc, argv};
    try
    {
        if (argc != 2)
            throw std::invalid_argument("usage: veloxa_view_times DRAWING");
        measure(argv[1]);
        return 0;
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
