#include "PreviewWindow.h"

#include "check/Check.h"
#include "surface/Surface.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
#include <QFrame>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
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

    findingsPane = new QListWidget;
    findingsPane->setWordWrap(true);
    connect(findingsPane, &QListWidget::itemActivated, this, [](const QListWidgetItem *item) {
        QDesktopServices::openUrl(item->data(Qt::UserRole).toUrl());
    });
    veil = new QFrame;
    veil->setAttribute(Qt::WA_TransparentForMouseEvents);
    veil->setStyleSheet(QStringLiteral("background: rgba(239, 239, 239, 180)"));
    auto *holder = new QWidget;
    cell = new QGridLayout(holder);
    cell->setContentsMargins(0, 0, 0, 0);
    cell->addWidget(veil, 0, 0);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(holder);
    splitter->addWidget(findingsPane);
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

// A file that was replaced by renaming another over it is a new one, and has to be watched anew.
void PreviewWindow::watch()
{
    QStringList paths {place.folder};
    for (const Format *format : place.formats)
        if (QFileInfo::exists(place.pathOf(*format)))
            paths += place.pathOf(*format);
    watcher.addPaths(paths);
}

void PreviewWindow::reload()
{
    watch(); // before reading, so that nothing is missed between
    const Documents documents = place.read();
    const QVector<Finding> findings = checkDocuments(documents, place.product);
    showFindings(findings);
    veil->setVisible(hasErrors(findings));
    if (hasErrors(findings))
        return;
    auto *built = new Surface(documents, surface ? surface->closedPanels() : QSet<QString>());
    delete surface;
    surface = built;
    showState();
    cell->addWidget(surface, 0, 0);
    surface->show();
    veil->raise();
}

void PreviewWindow::showState()
{
    if (surface)
        surface->showState(states.at(stateSelector->currentIndex()),
                           static_cast<Presentation>(presentationSelector->currentIndex()));
}

// Errors first.
void PreviewWindow::showFindings(QVector<Finding> findings)
{
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.severity < b.severity; });
    findingsPane->clear();
    for (const Finding &finding : qAsConst(findings)) {
        const QFileInfo file(finding.path);
        auto *item = new QListWidgetItem(
            compose("%1:%2:%3: ", file.fileName(), finding.position.line, finding.position.column)
                + finding.message(),
            findingsPane);
        item->setData(Qt::UserRole, QUrl::fromLocalFile(file.absoluteFilePath()));
    }
    if (findings.isEmpty() && findingsPane->hasFocus())
        stateSelector->setFocus();
    findingsPane->setVisible(!findings.isEmpty());
}

} // namespace Quenda::Workbench
