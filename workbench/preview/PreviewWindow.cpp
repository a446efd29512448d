#include "preview/PreviewWindow.h"

#include "surface/Surface.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDir>
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

#include <sys/stat.h>

#include <chrono>
#include <memory>

using namespace std::chrono_literals;

namespace Quenda::Workbench {

namespace {

// It is short enough for a surface that follows at once.
constexpr auto interval = 100ms;

} // namespace

PreviewWindow::PreviewWindow(const Place &shownPlace, const QString &editorCommand)
    : place(shownPlace),
      editor(editorCommand.isEmpty() ? qEnvironmentVariable("QUENDA_EDITOR") : editorCommand),
      states(statesToShow(shownPlace.product)),
      surface(new Surface)
{
    setWindowTitle(compose("%1 - Quenda workbench", place.folder));
    // The current folder, too, may be replaced by another.
    place.folder = QFileInfo(place.folder).absoluteFilePath();
    auto *controls = new QHBoxLayout;
    QStringList stateNames;
    for (const HostState &state : states)
        stateNames += state.label();
    // The mnemonics differ from those of the shipped menus.
    stateSelector = addSelector(controls, u"state"_s, u"&State:"_s, stateNames);
    presentationSelector =
        addSelector(controls, u"presentation"_s, u"Sho&w:"_s, {u"Tool boxes"_s, u"Tool bars"_s});
    auto *panelsButton = new QPushButton(u"&Panels"_s);
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
    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(surface);
    splitter->addWidget(findingsPane);
    splitter->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addWidget(splitter);
    layout->addWidget(failure);
    resize(QSize(1200, 800).boundedTo(QGuiApplication::primaryScreen()->availableSize() * 0.9));
    splitter->setSizes({height() * 4 / 5, height() / 5});

    new QShortcut(Qt::Key_F5, this, [this] { reload(); });
    new QShortcut(QKeySequence(u"Ctrl+Q"_s), this, [this] { close(); });
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

// Returns what changes with a file, whether it is written or replaced by another.
QByteArray PreviewWindow::filesNow() const
{
    QByteArray files;
    for (const Format *format : place.formats) {
        struct stat file = {}; // zeros if it fails
        stat(QFile::encodeName(place.pathOf(*format)).constData(), &file);
        for (const qint64 number : {qint64(file.st_dev), qint64(file.st_ino), qint64(file.st_size),
                                    qint64(file.st_ctim.tv_sec), qint64(file.st_ctim.tv_nsec)})
            files += QByteArray::number(number) + ' ';
    }
    return files;
}

// Unlike a QFileSystemWatcher, this misses nothing when files, folders or links are replaced.
// Editors save in several steps, so it waits until the files stay the same.
void PreviewWindow::follow()
{
    const QByteArray files = filesNow();
    if (files == lastFiles && files != shownFiles)
        reload();
    lastFiles = files;
}

void PreviewWindow::reload()
{
    shownFiles = filesNow(); // first, so that follow() notices a change from here on
    const Documents documents = place.read();
    findings = checkDocuments(documents, place.product);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.severity < b.severity; });
    showFindings();
    surface->setEnabled(!hasErrors(findings));
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
    if (!words.isEmpty() && !editor.contains(u"{file}"_s))
        words += u"{file}"_s;
    for (QString &word : words)
        word.replace(u"{line}"_s, QString::number(finding.position.line))
            .replace(u"{column}"_s, QString::number(finding.position.column))
            .replace(u"{file}"_s, finding.path);
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
