#include "PreviewWindow.h"

#include "check/Check.h"
#include "surface/Surface.h"

#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedLayout>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include <chrono>

using namespace std::chrono_literals;

namespace Quenda::Workbench {

namespace {

// Editors save in several steps. Short enough for a surface that follows at once.
constexpr auto settlingTime = 60ms;

} // namespace

PreviewWindow::PreviewWindow(const Place &shownPlace)
    : place(shownPlace), states(statesToShow(shownPlace.product))
{
    setWindowTitle(compose("%1 - Quenda workbench", place.isBuiltIn()
                                                        ? place.product
                                                        : QDir::toNativeSeparators(place.folder)));
    auto *controls = new QHBoxLayout;
    QStringList stateNames;
    for (const HostState &state : states)
        stateNames += state.label();
    stateSelector =
        addSelector(controls, QStringLiteral("state"), QStringLiteral("&State:"), stateNames);
    presentationSelector =
        addSelector(controls, QStringLiteral("presentation"), QStringLiteral("Sh&ow:"),
                    {QStringLiteral("Tool boxes"), QStringLiteral("Tool bars")});
    controls->addStretch();

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(newSurfaceHolder());
    splitter->addWidget(newFindingsPane());
    splitter->setStretchFactor(0, 1);
    splitter->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(splitter, 1);
    resize(QSize(1200, 800).boundedTo(QGuiApplication::primaryScreen()->availableSize() * 0.9));
    splitter->setSizes({height() * 4 / 5, height() / 5});

    new QShortcut(Qt::Key_F5, this, [this] { reload(); });
    new QShortcut(QKeySequence(QStringLiteral("Ctrl+Q")), this, [this] { close(); });
    settling.setSingleShot(true);
    settling.setInterval(settlingTime);
    connect(&settling, &QTimer::timeout, this, &PreviewWindow::reload);
    const auto settle = [this] { settling.start(); };
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, settle);
    connect(&watcher, &QFileSystemWatcher::fileChanged, this, settle);
    reload();
}

QComboBox *PreviewWindow::addSelector(QHBoxLayout *controls, const QString &name,
                                      const QString &text, const QStringList &items)
{
    auto *selector = new QComboBox;
    selector->setObjectName(name);
    selector->addItems(items);
    connect(selector, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &PreviewWindow::showState);
    auto *label = new QLabel(text);
    label->setBuddy(selector);
    controls->addWidget(label);
    controls->addWidget(selector);
    return selector;
}

QWidget *PreviewWindow::newSurfaceHolder()
{
    auto *holder = new QWidget;
    layers = new QStackedLayout(holder);
    layers->setStackingMode(QStackedLayout::StackAll);
    veil = new QWidget;
    veil->setObjectName(QStringLiteral("veil"));
    veil->setAttribute(Qt::WA_StyledBackground);
    veil->setAttribute(Qt::WA_TransparentForMouseEvents);
    veil->setStyleSheet(QStringLiteral("#veil { background: rgba(239, 239, 239, 180) }"));
    layers->addWidget(veil);
    return holder;
}

QWidget *PreviewWindow::newFindingsPane()
{
    findingsPane = new QTextBrowser;
    findingsPane->setOpenLinks(false);
    findingsPane->setTextInteractionFlags(Qt::TextBrowserInteraction
                                          | Qt::TextSelectableByKeyboard);
    connect(findingsPane, &QTextBrowser::anchorClicked, this,
            [](const QUrl &url) { QDesktopServices::openUrl(url); });
    return findingsPane;
}

// A file that was replaced by renaming another over it is a new one, and has to be watched anew.
void PreviewWindow::watch()
{
    if (place.isBuiltIn())
        return;
    QStringList paths {place.folder};
    for (DocumentKind kind : place.kinds)
        if (QFileInfo::exists(place.pathOf(kind)))
            paths += place.pathOf(kind);
    watcher.addPaths(paths);
}

void PreviewWindow::reload()
{
    watch(); // before reading, so that nothing is missed between
    const Documents documents = place.read();
    const QVector<Finding> findings = checkDocuments(documents, place.product);
    showFindings(findings);
    if (hasErrors(findings)) {
        layers->setCurrentWidget(veil);
        return;
    }

    auto *built = new Surface(documents);
    built->setWindowFlags(Qt::Widget);
    if (surface) {
        built->setClosedPanels(surface->closedPanels());
        delete surface;
    }
    surface = built;
    showState();
    layers->addWidget(surface);
    layers->setCurrentWidget(surface);
    veil->hide();
}

void PreviewWindow::showState()
{
    if (surface)
        surface->showState(states.at(stateSelector->currentIndex()),
                           static_cast<Presentation>(presentationSelector->currentIndex()));
}

void PreviewWindow::showFindings(QVector<Finding> findings)
{
    const bool isWrong = hasErrors(findings);
    findingsPane->setPlaceholderText(
        isWrong || findings.isEmpty()
            ? QString()
            : compose("No errors. Warnings, which \"check\" lists: %1", findings.size()));
    findingsPane->setFocusPolicy(isWrong ? Qt::StrongFocus : Qt::NoFocus);
    // While nothing is wrong, warnings would only distract from the surface.
    if (!isWrong)
        findings.clear();
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.severity < b.severity; });
    QString html;
    for (const Finding &finding : qAsConst(findings)) {
        const QFileInfo file(finding.path);
        const QString link = QUrl::fromLocalFile(file.absoluteFilePath()).toString();
        const QString where =
            compose("%1:%2:%3", file.fileName(), finding.position.line, finding.position.column);
        html += compose("<div><a href=\"%1\">%2</a>: %3</div>", link.toHtmlEscaped(),
                        where.toHtmlEscaped(), finding.message().toHtmlEscaped());
    }
    findingsPane->setHtml(html);
}

} // namespace Quenda::Workbench
