#include "app/application.h"
#include "app/documentcommands.h"
#include "app/mainwindow.h"
#include "app/report/runlog.h"
#include "graph/graphscene.h"
#include "graph/node.h"
#include "panes/canvas/graphpane.h"
#include "settings/settings.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHashFunctions>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

// How fast the window answers, measured in the real window on the offscreen platform (scripts/bench window).

namespace {

constexpr int repeats = 9;
constexpr int dragSteps = 120;
constexpr int columnsOfGraph = 20;

/// Says when the canvas has been painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QObject &watched) { watched.installEventFilter(this); }

    /// Lets events in until there is a picture that is newer than the call; false after two seconds.
    bool wait()
    {
        m_painted = false;
        QElapsedTimer timer;
        for (timer.start(); !m_painted && timer.elapsed() < 2000;) {
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        }
        return m_painted;
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_painted = false;
};

/// An input and a grid of transforms behind it, each fed by the one to its left and the first column by the input.
QByteArray document(const QString &csv, int items)
{
    QByteArray transforms;
    QByteArray connections;
    for (int id = 2; id <= items; ++id) {
        const int place = id - 2;
        const int column = place % columnsOfGraph;
        transforms += "<transform id=\"" + QByteArray::number(id) + "\" name=\"Case\" pos_v12=\""
                      + QByteArray::number((column + 1) * 239.4) + '\x1f'
                      + QByteArray::number(place / columnsOfGraph * 119.7) + "\"/>";
        connections += "<connection start_id=\"" + QByteArray::number(column == 0 ? 1 : id - 1) + "\" end_id=\""
                       + QByteArray::number(id) + "\"/>";
    }
    return "<!DOCTYPE Quillmere>\n<root><meta><version value=\"86\"/></meta><inputs><input id=\"1\" medium=\"0\" "
           "header=\"1\" "
           "file_type=\"0\" delimiter=\"1\" path=\""
           + QUrl::toPercentEncoding(csv) + "\" alias=\"in\"/></inputs><transforms>" + transforms
           + "</transforms><outputs/><charts/><notes/><connections>" + connections + "</connections></root>\n";
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("can't write %s", qPrintable(path));
    }
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// Processor time and memory of this process so far.
void printStart()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const double cpu = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
                       + static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    std::printf("%6d %-28s %10.2f (goal 0.4)\n", 0, "start to empty window, cpu s", cpu);
    std::printf("%6d %-28s %10.1f (goal 80)\n", 0, "memory of it, MiB", static_cast<double>(usage.ru_maxrss) / 1024);
}

class Bench
{
public:
    explicit Bench(MainWindow &window)
        : m_window(window)
        , m_pane(*window.findChild<GraphPane *>())
        , m_watch(*m_pane.viewport())
    {
    }

    void run(const QString &path, int items)
    {
        QElapsedTimer timer;
        timer.start();
        if (!m_window.documents().openDocument(path)) {
            qFatal("can't open %s", qPrintable(path));
        }
        m_watch.wait();
        print(items, "open to repaint, ms", timer.nsecsElapsed() / 1e6);
        print(items, "click to repaint, ms", click());
        print(items, "frames a second of a drag", drag());
        print(items, "undo to repaint, ms", undo());
        m_window.session().setModified(false);
    }

private:
    static void print(int items, const char *what, double value)
    {
        std::printf("%6d %-28s %10.1f\n", items, what, value);
        std::fflush(stdout);
    }

    /// Each item is clicked after another one, so that selection, right pane and actions change.
    double click()
    {
        const QList<Node *> nodes = m_window.scene().nodes();
        QVector<double> times;
        for (int i = 0; i < repeats; ++i) {
            const QPoint place = m_pane.mapFromScene(nodes.at(i * nodes.size() / repeats)->centre());
            QElapsedTimer timer;
            timer.start();
            QTest::mouseClick(m_pane.viewport(), Qt::LeftButton, Qt::NoModifier, place);
            m_watch.wait();
            times.append(timer.nsecsElapsed() / 1e6);
        }
        return median(times);
    }

    double drag()
    {
        const Node *node = m_window.scene().nodeById(columnsOfGraph / 2);
        QPoint place = m_pane.mapFromScene(node->centre());
        QWidget *canvas = m_pane.viewport();
        QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, place);
        const auto move = [&] {
            place += QPoint(1, 1);
            QMouseEvent event(
                QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(canvas, &event);
            m_watch.wait();
        };
        for (int i = 0; i < 10; ++i) {
            move(); // past the distance that begins a drag
        }
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < dragSteps; ++i) {
            move();
        }
        const double seconds = timer.nsecsElapsed() / 1e9;
        QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, place);
        m_watch.wait();
        return dragSteps / seconds;
    }

    /// Takes the drag back and does it again.
    double undo()
    {
        QVector<double> times;
        for (int i = 0; i < repeats - 1; ++i) {
            auto *action = m_window.findChild<QAction *>(
                i % 2 == 0 ? QStringLiteral("m_editUndoAction") : QStringLiteral("m_editRedoAction"));
            QElapsedTimer timer;
            timer.start();
            action->trigger();
            m_watch.wait();
            times.append(timer.nsecsElapsed() / 1e6);
        }
        return median(times);
    }

    MainWindow &m_window;
    GraphPane &m_pane;
    PaintWatch m_watch;
};

} // namespace

int main(int argc, char **argv)
{
    qSetGlobalQHashSeed(0);
    const QTemporaryDir folder;
    qputenv("XDG_CONFIG_HOME", folder.filePath(QStringLiteral("config")).toUtf8());
    qputenv("TMPDIR", folder.path().toUtf8());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv, Application::Mode::Window);
    Settings &settings = application.settings();
    settings.setWarnOnLocaleChange(false);
    settings.setOpenAutoRun(AutoRunChoice::LeaveAutoRun);
    settings.setOpenPreviousAtStart(StartChoice::Nothing);
    settings.setShowGettingStarted(false);
    const QString csv = folder.filePath(QStringLiteral("in.csv"));
    write(csv, "id,name\n1,a\n2,b\n");
    RunLog log;
    MainWindow window(application, CommandLine(), log);
    window.resize(1600, 900);
    window.start();
    PaintWatch(*window.findChild<GraphPane *>()->viewport()).wait();
    printStart();
    Bench bench(window);
    for (const int items : {200, 2000}) {
        const QString path = folder.filePath(QStringLiteral("%1.transform").arg(items));
        write(path, document(csv, items));
        bench.run(path, items);
    }
    return 0;
}
