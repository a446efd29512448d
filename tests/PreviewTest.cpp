#include "PreviewWindow.h"
#include "StringLiterals.h"
#include "surface/Surface.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDockWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QToolButton>
#include <QtTest>

using namespace Quenda::Workbench;

class PreviewTest : public QObject
{
    Q_OBJECT

private:
    // "zoom" in the tool document, by another name.
    QByteArray withTool(const QByteArray &id) const
    {
        return QByteArray(original).replace("<tool id=\"zoom\"", "<tool id=\"" + id + "\"");
    }

    void saveInPlace(const QByteArray &content) const
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    void saveByRenaming(const QByteArray &content) const
    {
        QFile file(path + u".new"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        QCOMPARE(std::rename(qPrintable(file.fileName()), qPrintable(path)), 0);
    }

    bool shows(const QString &tool) const { return window->findChild<QToolButton *>(tool); }
    QWidget *veil() const { return window->findChild<QWidget *>(u"veil"_s); }
    QTextBrowser *findings() const { return window->findChild<QTextBrowser *>(); }
    Surface *surface() const
    {
        const auto children = window->findChildren<QWidget *>();
        for (QWidget *child : children)
            if (auto *found = dynamic_cast<Surface *>(child))
                return found;
        return nullptr;
    }

private Q_SLOTS:
    void init()
    {
        directory = std::make_unique<QTemporaryDir>();
        const QString folder = directory->filePath(u"tesmar"_s);
        QVERIFY(QDir(directory->path()).mkdir(u"tesmar"_s));
        for (const char *name : {"confs.xml", "tools.xml", "menus.xml"}) {
            const QString copy = folder + QLatin1Char('/') + QLatin1String(name);
            QVERIFY(QFile::copy(u":/widgets/tesmar/"_s + QLatin1String(name), copy));
            QVERIFY(QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner));
        }
        path = folder + u"/tools.xml"_s;
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        original = file.readAll();
        QString error;
        window = std::make_unique<PreviewWindow>(*Place::find(folder, &error));
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    void cleanup()
    {
        window.reset();
        directory.reset();
    }

    void savedInPlaceAndByRenaming()
    {
        QVERIFY(shows(u"zoom"_s));
        saveInPlace(withTool("first"));
        QTRY_VERIFY(shows(u"first"_s) && !shows(u"zoom"_s));
        saveByRenaming(withTool("second"));
        QTRY_VERIFY(shows(u"second"_s));
        // The file is another one now, and is watched all the same.
        saveInPlace(withTool("third"));
        QTRY_VERIFY(shows(u"third"_s));
        saveByRenaming(withTool("fourth"));
        QTRY_VERIFY(shows(u"fourth"_s));
        // Some editors remove it before they write it anew.
        QVERIFY(QFile::remove(path));
        QTRY_VERIFY(findings()->toPlainText().contains(u"cannot be read"_s));
        saveInPlace(withTool("fifth"));
        QTRY_VERIFY(shows(u"fifth"_s));
    }

    void brokenAndMended()
    {
        QCOMPARE(findings()->toPlainText(), QString());
        saveByRenaming(withTool(" ").replace("mode=\"0x2\"", "mode=\"0x42\""));
        QTRY_VERIFY(!findings()->toPlainText().isEmpty());
        QVERIFY(shows(u"select"_s) && veil()->isVisible());
        // Errors first, though the warning stands before one of them.
        const QStringList lines = findings()->toPlainText().split(QLatin1Char('\n'));
        QVERIFY(lines.first().contains(u"error: "_s));
        QVERIFY(lines.filter(u"warning: "_s).size() == 3 && lines.last().contains(u"warning: "_s));

        QDesktopServices::setUrlHandler(u"file"_s, this, "open");
        const QUrl link = QUrl::fromLocalFile(path);
        QVERIFY(findings()->toHtml().contains(link.toString()));
        Q_EMIT findings()->anchorClicked(link);
        QCOMPARE(openedUrl, link);

        saveInPlace(original);
        QTRY_VERIFY(findings()->toPlainText().isEmpty());
        QVERIFY(shows(u"zoom"_s) && veil()->isHidden());
    }

    void whatTheUserChoseSurvives()
    {
        auto *state = window->findChild<QComboBox *>(u"state"_s);
        auto *presentation = window->findChild<QComboBox *>(u"presentation"_s);
        QCOMPARE(state->itemText(0), u"full view (0x1)"_s);
        state->setCurrentIndex(1);
        surface()->findChild<QDockWidget *>(u"keypad"_s)->close();
        window->resize(640, 480);
        QCOMPARE(window->size(), QSize(640, 480));
        saveByRenaming(withTool("new"));
        QTRY_VERIFY(shows(u"new"_s));
        QVERIFY(surface()->findChild<QDockWidget *>(u"toolbox 2"_s)->isVisible());
        QVERIFY(surface()->findChild<QDockWidget *>(u"keypad"_s)->isHidden());
        QCOMPARE(window->size(), QSize(640, 480));

        presentation->setCurrentIndex(1);
        saveInPlace(withTool("newer"));
        QTRY_VERIFY(shows(u"newer"_s));
        QVERIFY(surface()->findChild<QWidget *>(u"tbcut"_s)->isVisible());
        QVERIFY(surface()->findChild<QDockWidget *>(u"toolbox 2"_s)->isHidden());
    }

    void keys()
    {
        saveInPlace("");
        QTest::keyClick(window.get(), Qt::Key_F5);
        QVERIFY(findings()->toPlainText().contains(u"tools.xml:1:1: error"_s));
        QTest::keyClick(window.get(), Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(window->isHidden());
    }

public Q_SLOTS:
    void open(const QUrl &url) { openedUrl = url; }

private:
    std::unique_ptr<QTemporaryDir> directory;
    std::unique_ptr<PreviewWindow> window;
    QString path; // of the tool document
    QByteArray original;
    QUrl openedUrl;
};

QTEST_MAIN(PreviewTest)
#include "PreviewTest.moc"
