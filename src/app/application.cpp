#include "app/application.h"

#include "app/exceptionreport.h"
#include "app/mainwindow.h"
#include "app/report/runlog.h"
#include "charts/chartnode.h"
#include "data/dataset.h"
#include "files/encodings.h"
#include "graph/colors.h"
#include "graph/nodefactory.h"
#include "graph/pictures.h"
#include "graph/runcontrol.h"
#include "inputnode/inputnode.h"
#include "outputnode/outputdefaults.h"
#include "outputnode/outputnode.h"
#include "panes/dialogs/prompts.h"
#include "panes/dialogs/textlabeldialog.h"
#include "platform/desktop.h"
#include "settings/product.h"
#include "settings/settings.h"
#include "transforms/catalogue.h"
#include "transforms/frame/transform.h"

#include <QDebug>
#include <QFileInfo>
#include <QStyleFactory>
#include <algorithm>
#include <cstdlib>

namespace {

constexpr size_t reserveSize = 0x40000;
constexpr int smallFont = 10;

std::unique_ptr<Settings> openSettings(const QDir &applicationDir)
{
    const QString ini = applicationDir.filePath(QString::fromLatin1(Product::iniFileName));
    return QFileInfo::exists(ini) ? std::make_unique<Settings>(ini) : std::make_unique<Settings>();
}

QString productName()
{
    return QString::fromLatin1(Product::name);
}

} // namespace

Application::Application(int &argc, char **argv, Mode mode)
    : QApplication(argc, argv)
    , m_prompts(std::make_unique<Prompts>(nullptr))
    , m_memoryReserve(std::malloc(reserveSize))
    , m_applicationDir(applicationDirPath())
{
    setApplicationName(productName());
    setOrganizationName(QString::fromLatin1(Product::organisation));
    m_settings = openSettings(m_applicationDir);
    Settings::setCurrent(m_settings.get());
    Dataset::setMaximumSpeed(m_settings->optimizeFor() == RunOptimum::Speed);
    if (mode == Mode::Window) {
        setUpWindowDefaults();
    }
    setUpNodeFactory();
    RunControl::setKeepAlive([] { keepAlive(); });
}

Application::~Application()
{
    RunControl::reset();
    releaseMemoryReserve();
    m_outOfMemoryDialog.reset();
    NodeFactory::instance() = NodeFactory();
    Settings::setCurrent(nullptr);
    qDeleteAll(m_transforms);
}

void Application::setUpWindowDefaults()
{
    setAttribute(Qt::AA_UseHighDpiPixmaps);
    setWindowIcon(Pictures::programIcon());
    // Where windows have no icon of their own, the desktop finds it by the entry in its menu.
    setDesktopFileName(QStringLiteral("quillmere"));
    setFont(platform::messageFont());
    m_defaultFont = font();
    if (m_defaultFont.pointSize() > 0 && m_defaultFont.pointSize() < smallFont) {
        m_defaultFont.setPointSize(m_defaultFont.pointSize() + 1);
    }
    m_settings->setDefaultFont(m_defaultFont);
    setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    m_outOfMemoryDialog = std::make_unique<TextLabelDialog>(
        QStringLiteral("Out of memory"), QStringLiteral("%1 ran out of memory!").arg(productName()));
}

void Application::setUpNodeFactory()
{
    NodeFactory &factory = NodeFactory::instance();
    factory.createInput = [](const QString &path) -> IONode * { return new InputNode(InputOptions::forFile(path)); };
    factory.createClipboardInput = [](const QString &text) -> IONode * {
        return new InputNode(InputOptions::forClipboard(text));
    };
    factory.createFolderInput = [](const QString &folder, const QString &mask) -> IONode * {
        FolderInput source;
        source.folder = folder;
        if (!mask.isEmpty()) {
            source.fileMatch = mask;
        }
        return new InputNode(InputOptions::forFolder(source, FileType::None));
    };
    factory.createOutput = [](const QString &path, int fileType) -> IONode * {
        auto *node = new OutputNode(path, fileType);
        OutputDefaults::apply(*node);
        return node;
    };
    factory.createChart = []() -> Node * { return new ChartNode; };
}

Colors &Application::colors()
{
    return Colors::current();
}

QFont Application::monospaceFont() const
{
    QFont font = m_defaultFont;
    font.setStyleHint(QFont::Monospace);
    font.setFamily(QStringLiteral("Consolas"));
    if (!QFontInfo(font).exactMatch()) {
        font.setFamily(QStringLiteral("Courier New"));
    }
    return font;
}

const QList<Transform *> &Application::transforms()
{
    if (m_transforms.isEmpty()) {
        for (const CatalogueRow &row : Catalogue::rows()) {
            if (Transform *transform = Catalogue::create(QString::fromLatin1(row.typeName))) {
                m_transforms.append(transform);
            }
        }
        std::sort(m_transforms.begin(), m_transforms.end(), [](const Transform *a, const Transform *b) {
            return a->displayName().toLower() < b->displayName().toLower();
        });
    }
    return m_transforms;
}

Transform *Application::transformByName(const QString &typeName)
{
    const QList<Transform *> &all = transforms();
    const auto found = std::find_if(all.cbegin(), all.cend(),
        [&typeName](const Transform *transform) { return transform->typeName() == typeName; });
    return found == all.cend() ? nullptr : *found;
}

const QStringList &Application::codecNames()
{
    return Encodings::names();
}

void Application::setPrompts(std::unique_ptr<Prompts> prompts)
{
    m_prompts = std::move(prompts);
}

bool Application::reopenSettingsAsIni()
{
    return m_settings->reopenAsIni(m_applicationDir.filePath(QString::fromLatin1(Product::iniFileName)));
}

bool Application::reopenSettingsAsSystem()
{
    return m_settings->reopenAsSystem();
}

void Application::keepAlive()
{
    if (Application *application = instance()) {
        emit application->heartBeat();
    }
    QCoreApplication::processEvents();
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        closeAfter(ExceptionReport::ofCurrent());
    }
    return true;
}

void Application::closeAfter(const ExceptionReport &report)
{
    releaseMemoryReserve();
    if (m_mainWindow) {
        m_mainWindow->releaseDatasets();
    }
    qWarning().noquote() << report.logLine;
    m_prompts->critical(report.message);
    if (m_mainWindow) {
        m_mainWindow->saveRecoveryNow();
    }
    QCoreApplication::exit(report.code);
}

void Application::outOfMemoryHandler()
{
    static bool reporting = false;
    Application *application = instance();
    if (!reporting && application) {
        reporting = true;
        application->releaseMemoryReserve();
        RunLog::reportOutOfMemory();
        if (application->m_outOfMemoryDialog) {
            application->m_outOfMemoryDialog->exec();
        }
    }
    std::abort();
}

void Application::releaseMemoryReserve()
{
    std::free(m_memoryReserve);
    m_memoryReserve = nullptr;
}
