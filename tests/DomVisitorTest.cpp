#include "Config/DomVisitor.h"
#include "Table.h"

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
    void onVisitEnded(VisitCmd result) override { calls += "=%1"_s.arg(result); }
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
        if (answers.contains("!"_s))
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
        addColumns<QString, Answers, QString>("xml", "answers", "calls");

        const char tree[] = "<a><b><c/><d/></b><e/></a>";

        addRow("root alone", "<a/>", Answers(), "*a +a -a =0");
        addRow("whole tree", tree, Answers(), "*a +a +b +c -c +d -d -b +e -e -a =0");
        addRow("only elements", "<a>x<!-- y --><b/><?p q?><![CDATA[z]]><c/></a>", Answers(),
               "*a +a +b -b +c -c -a =0");
        addRow("prefix is part of the name", "<p:a/>", Answers(), "*p:a +p:a -p:a =0");
        addRow("skip the root's children", tree, Answers {{"+a"_s, DomVisitor::SkipChildren}},
               "*a +a =0");
        addRow("skip one element's children", tree, Answers {{"+b"_s, DomVisitor::SkipChildren}},
               "*a +a +b +e -e -a =0");
        addRow("stop on entering", tree, Answers {{"+c"_s, DomVisitor::Stop}}, "*a +a +b +c =1");
        addRow("stop on leaving a leaf", tree, Answers {{"-c"_s, DomVisitor::Stop}},
               "*a +a +b +c -c =1");
        addRow("stop on leaving a parent", tree, Answers {{"-b"_s, DomVisitor::Stop}},
               "*a +a +b +c -c +d -d -b =1");
        addRow("skip on leaving is continue", tree, Answers {{"-c"_s, DomVisitor::SkipChildren}},
               "*a +a +b +c -c +d -d -b +e -e -a =0");
        addRow("unknown answers are continue", tree, Answers {{"+b"_s, 7}, {"-c"_s, -1}},
               "*a +a +b +c -c +d -d -b +e -e -a =0");
        addRow("exception on entering", tree, Answers {{"+c"_s, throwException}},
               "*a +a +b +c !exception =1");
        addRow("exception on leaving", tree, Answers {{"-c"_s, throwException}},
               "*a +a +b +c -c !exception =1");
        addRow("exception that is no std::exception", tree, Answers {{"+a"_s, throwInt}},
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
        addColumns<QString>("text");
        addRow("empty", QString());
        addRow("no XML", "text");
        addRow("unclosed", "<a><b></a>");
        addRow("two roots", "<a/><b/>");
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
        const QDomElement start = document.documentElement().firstChildElement("c"_s);

        Recorder all;
        QCOMPARE(all.visit(start), DomVisitor::Continue);
        QCOMPARE(all.calls.join(QLatin1Char(' ')), "*c +c +d -d -c +e -e =0"_s);

        Recorder step({{"+e"_s, DomVisitor::Stop}});
        QCOMPARE(step.doVisit(start), DomVisitor::Stop);
        QCOMPARE(step.calls.join(QLatin1Char(' ')), "+c +d -d -c +e"_s);

        Recorder none;
        QCOMPARE(none.visit(QDomElement()), DomVisitor::Continue);
        QCOMPARE(none.calls.join(QLatin1Char(' ')), "* =0"_s);
    }

    // Levels further out must neither swallow what onError() throws nor report it as another
    // exception.
    void exceptionFromTheErrorHandlerPassesThrough()
    {
        Recorder visitor({{"+c"_s, throwInt}, {"!"_s, 0}});
        QVERIFY_EXCEPTION_THROWN(visitor.visit("<a><b><c/></b></a>"_s), std::logic_error);
        QCOMPARE(visitor.calls.join(QLatin1Char(' ')), "*a +a +b +c !exception"_s);
    }
};

QTEST_GUILESS_MAIN(DomVisitorTest)
#include "DomVisitorTest.moc"
