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
#include <QMenu>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QUrl>
#include <QVBoxLayout>

#include <chrono>
#include <memory>

using namespace std::chrono_literals;

namespace Quenda::Workbench {

namespace {

// Short enough for a surface that follows at once.
constexpr auto interval = 100ms;

} // namespace

PreviewWindow::PreviewWindow(const Place &shownPlace, const QString &editorCommand)
    : place(shownPlace),
      editor(editorCommand.isEmpty() ? qEnvironmentVariable("QUENDA_EDITOR") : editorCommand),
      states(statesToShow(shownPlace.product)),
      surface(new Surface)
{
    setWindowTitle(compose("%1 - Quenda workbench", place.isBuiltIn()
                                                        ? place.product
                                                        : QDir::toNativeSeparators(place.folder)));
    // The current folder, too, may be replaced by another.
    place.folder = QFileInfo(place.folder).absoluteFilePath();
    auto *controls = new QHBoxLayout;
    QStringList stateNames;
    for (const HostState &state : states)
        stateNames += state.label();
    // No mnemonic is one of the shipped menus'.
    stateSelector =
        addSelector(controls, QStringLiteral("state"), QStringLiteral("&State:"), stateNames);
    presentationSelector =
        addSelector(controls, QStringLiteral("presentation"), QStringLiteral("Sho&w:"),
                    {QStringLiteral("Tool boxes"), QStringLiteral("Tool bars")});
    auto *panelsButton = new QPushButton(QStringLiteral("&Panels"));
    auto *panels = new QMenu(panelsButton);
    connect(panels, &QMenu::aboutToShow, this, [this, panels] {
        const std::unique_ptr<QMenu> ofSurface(surface->createPopupMenu());
        if (ofSurface)
            panels->addActions(ofSurface->actions());
    });
    panelsButton->setMenu(panels);
    controls->addWidget(panelsButton);
    controls->addStretch();

    findingsPane = new QListWidget;
    findingsPane->setWordWrap(true);
    connect(findingsPane, &QListWidget::itemActivated, this,
            [this](QListWidgetItem *item) { open(findings.at(findingsPane->row(item))); });
    failure = new QLabel;
    failure->setWordWrap(true);
    failure->setTextFormat(Qt::PlainText);
    veil = new QFrame;
    veil->setAttribute(Qt::WA_TransparentForMouseEvents);
    veil->setStyleSheet(QStringLiteral("background: rgba(239, 239, 239, 180)"));
    auto *holder = new QWidget;
    auto *cell = new QGridLayout(holder);
    cell->setContentsMargins(0, 0, 0, 0);
    cell->addWidget(surface, 0, 0);
    cell->addWidget(veil, 0, 0);
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(holder);
    splitter->addWidget(findingsPane);
    splitter->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(splitter);
    layout->addWidget(failure);
    resize(QSize(1200, 800).boundedTo(QGuiApplication::primaryScreen()->availableSize() * 0.9));
    splitter->setSizes({height() * 4 / 5, height() / 5});

    new QShortcut(Qt::Key_F5, this, [this] { reload(); });
    new QShortcut(QKeySequence(QStringLiteral("Ctrl+Q")), this, [this] { close(); });
    connect(&timer, &QTimer::timeout, this, &PreviewWindow::follow);
    timer.start(interval);
    showState();
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

QVector<QByteArray> PreviewWindow::readFiles() const
{
    QVector<QByteArray> files;
    for (const Format *format : place.formats) {
        QFile file(place.pathOf(*format));
        files += file.open(QIODevice::ReadOnly) ? file.readAll() : file.errorString().toUtf8();
    }
    return files;
}

// Compares what is in the files. Unlike a QFileSystemWatcher, this misses nothing when files,
// folders or links are replaced. Editors save in several steps, so it waits until the files stay
// the same.
void PreviewWindow::follow()
{
    const QVector<QByteArray> files = readFiles();
    if (files == lastFiles && files != shownFiles)
        reload();
    lastFiles = files;
}

void PreviewWindow::reload()
{
    shownFiles = readFiles(); // first, so that follow() notices a change from here on
    const Documents documents = place.read();
    findings = checkDocuments(documents, place.product);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.severity < b.severity; });
    showFindings();
    veil->setVisible(hasErrors(findings));
    if (!hasErrors(findings))
        surface->setDocuments(documents);
}

void PreviewWindow::showState()
{
    surface->showState(states.at(stateSelector->currentIndex()),
                       static_cast<Presentation>(presentationSelector->currentIndex()));
}

void PreviewWindow::showFindings()
{
    failure->hide();
    findingsPane->clear();
    for (const Finding &finding : qAsConst(findings))
        findingsPane->addItem(compose("%1:%2:%3: ", QFileInfo(finding.path).fileName(),
                                      finding.position.line, finding.position.column)
                              + finding.message());
    if (findings.isEmpty() && findingsPane->hasFocus())
        stateSelector->setFocus();
    findingsPane->setVisible(!findings.isEmpty());
}

void PreviewWindow::open(const Finding &finding)
{
    QStringList words = QProcess::splitCommand(editor);
    for (QString &word : words)
        word.replace(QLatin1String("{line}"), QString::number(finding.position.line))
            .replace(QLatin1String("{column}"), QString::number(finding.position.column))
            .replace(QLatin1String("{file}"), finding.path);
    const QString program = words.isEmpty() ? QString() : words.takeFirst();
    const bool isOpen = program.isEmpty()
                            ? QDesktopServices::openUrl(QUrl::fromLocalFile(finding.path))
                            : QProcess::startDetached(program, words);
    failure->setVisible(!isOpen);
    failure->setText(
        program.isEmpty()
            ? compose("The desktop cannot open %1; name an editor with --editor or "
                      "QUENDA_EDITOR.",
                      QFileInfo(finding.path).fileName())
            : compose("\"%1\" cannot be started; correct --editor or QUENDA_EDITOR.", program));
}

} // namespace Quenda::Workbench
