#include "Config/DomVisitor.h"

#include <QDomDocument>
#include <QtTest>

#include <stdexcept>

using Quenda::Kit::DomVisitor;

namespace {

// Besides the commands: what a handler can do instead of answering.
constexpr int throwException = 100;
constexpr int throwInt = 101;

// Answers by handler and tag name, such as "+b" for entering <b> and "-b" for leaving it.
using Answers = QMap<QString, int>;

// Writes down every call: "*" a walk starts, "+" and "-" an element, "=" the end, "!" an error.
class Recorder : public DomVisitor
{
public:
    explicit Recorder(const Answers &handlerAnswers = {}) : answers(handlerAnswers) { }

    QStringList calls;

protected:
    void onVisitStarted(const QDomElement &element) override
    {
        calls += QLatin1Char('*') + element.tagName();
    }
    void onVisitEnded(VisitCmd result) override { calls += QStringLiteral("=%1").arg(result); }
    VisitCmd onElement(const QDomElement &element) override
    {
        return answer(QLatin1Char('+') + element.tagName());
    }
    VisitCmd onEndElement(const QDomElement &element) override
    {
        return answer(QLatin1Char('-') + element.tagName());
    }
    void onError(const QString &message) override
    {
        calls += QLatin1Char('!') + message;
        if (answers.contains(QStringLiteral("!")))
            throw std::logic_error("from onError");
    }

private:
    VisitCmd answer(const QString &call)
    {
        calls += call;
        const int value = answers.value(call, Continue);
        if (value == throwException)
            throw std::runtime_error("from a handler");
        if (value == throwInt)
            throw 1;
        return static_cast<VisitCmd>(value);
    }

    Answers answers;
};

QDomDocument documentOf(const char *xml)
{
    QDomDocument document;
    document.setContent(QString::fromUtf8(xml));
    return document;
}

} // namespace

class DomVisitorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void walk_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<Answers>("answers");
        QTest::addColumn<QString>("calls");

        const auto row = [](const char *name, const char *xml, const Answers &answers,
                            const char *calls) {
            QTest::addRow("%s", name)
                << QString::fromUtf8(xml) << answers << QString::fromUtf8(calls);
        };
        const char tree[] = "<a><b><c/><d/></b><e/></a>";
        const QString enterA = QStringLiteral("+a");
        const QString enterB = QStringLiteral("+b");
        const QString enterC = QStringLiteral("+c");
        const QString leaveB = QStringLiteral("-b");
        const QString leaveC = QStringLiteral("-c");

        row("root alone", "<a/>", {}, "*a +a -a =0");
        row("whole tree", tree, {}, "*a +a +b +c -c +d -d -b +e -e -a =0");
        row("only elements", "<a>x<!-- y --><b/><?p q?><![CDATA[z]]><c/></a>", {},
            "*a +a +b -b +c -c -a =0");
        row("prefix is part of the name", "<p:a/>", {}, "*p:a +p:a -p:a =0");
        row("skip the root's children", tree, {{enterA, DomVisitor::SkipChildren}}, "*a +a =0");
        row("skip one element's children", tree, {{enterB, DomVisitor::SkipChildren}},
            "*a +a +b +e -e -a =0");
        row("stop on entering", tree, {{enterC, DomVisitor::Stop}}, "*a +a +b +c =1");
        row("stop on leaving a leaf", tree, {{leaveC, DomVisitor::Stop}}, "*a +a +b +c -c =1");
        row("stop on leaving a parent", tree, {{leaveB, DomVisitor::Stop}},
            "*a +a +b +c -c +d -d -b =1");
        row("skip on leaving is continue", tree, {{leaveC, DomVisitor::SkipChildren}},
            "*a +a +b +c -c +d -d -b +e -e -a =0");
        row("unknown answers are continue", tree, {{enterB, 7}, {leaveC, -1}},
            "*a +a +b +c -c +d -d -b +e -e -a =0");
        row("exception on entering", tree, {{enterC, throwException}}, "*a +a +b +c !exception =1");
        row("exception on leaving", tree, {{leaveC, throwException}},
            "*a +a +b +c -c !exception =1");
        row("exception that is no std::exception", tree, {{enterA, throwInt}},
            "*a +a !exception =1");
    }

    void walk()
    {
        QFETCH(QString, xml);
        QFETCH(Answers, answers);

        Recorder visitor(answers);
        const QString message = visitor.visit(xml);
        QVERIFY(message.isEmpty() && !message.isNull());
        QTEST(visitor.calls.join(QLatin1Char(' ')), "calls");
    }

    void textThatDoesNotParse_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addRow("empty") << QString();
        QTest::addRow("no XML") << QStringLiteral("text");
        QTest::addRow("unclosed") << QStringLiteral("<a><b></a>");
        QTest::addRow("two roots") << QStringLiteral("<a/><b/>");
    }

    void textThatDoesNotParse()
    {
        QFETCH(QString, text);
        QDomDocument document;
        QString expected;
        QVERIFY(!document.setContent(text, &expected));

        Recorder visitor;
        QCOMPARE(visitor.visit(text), expected);
        QVERIFY(!expected.isEmpty());
        QCOMPARE(visitor.calls, QStringList(QLatin1Char('!') + expected));
    }

    void walkFromAnElement()
    {
        const QDomDocument document = documentOf("<a><b/><c><d/></c><e/></a>");
        const QDomElement start = document.documentElement().firstChildElement(QStringLiteral("c"));

        Recorder all;
        QCOMPARE(all.visit(start), DomVisitor::Continue);
        QCOMPARE(all.calls.join(QLatin1Char(' ')), QStringLiteral("*c +c +d -d -c +e -e =0"));

        Recorder step({{QStringLiteral("+e"), DomVisitor::Stop}});
        QCOMPARE(step.doVisit(start), DomVisitor::Stop);
        QCOMPARE(step.calls.join(QLatin1Char(' ')), QStringLiteral("+c +d -d -c +e"));

        Recorder none;
        QCOMPARE(none.visit(QDomElement()), DomVisitor::Continue);
        QCOMPARE(none.calls.join(QLatin1Char(' ')), QStringLiteral("* =0"));
    }

    // Levels further out must neither swallow what onError() throws nor report it as another
    // exception.
    void exceptionFromTheErrorHandlerPassesThrough()
    {
        Recorder visitor({{QStringLiteral("+c"), throwInt}, {QStringLiteral("!"), 0}});
        QVERIFY_EXCEPTION_THROWN(visitor.visit(QStringLiteral("<a><b><c/></b></a>")),
                                 std::logic_error);
        QCOMPARE(visitor.calls.join(QLatin1Char(' ')), QStringLiteral("*a +a +b +c !exception"));
    }

    void deepNesting()
    {
        constexpr int depth = 2000;
        const QString text =
            QStringLiteral("<a>").repeated(depth) + QStringLiteral("</a>").repeated(depth);
        Recorder visitor;
        visitor.visit(text);
        QCOMPARE(visitor.calls.size(), 2 * depth + 2);
    }
};

QTEST_GUILESS_MAIN(DomVisitorTest)
#include "DomVisitorTest.moc"
