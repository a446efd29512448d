#include "Config/DomVisitor.h"
#include "StringLiterals.h"

#include <QDomDocument>
#include <QTest>

#include <stdexcept>

using Quenda::Kit::DomVisitor;

namespace {

// What a handler can do instead of returning a command.
constexpr int throwException = 100;
constexpr int throwInt = 101;

// Results by handler and tag name, such as "+b" before the children of <b> and "-b" after them.
using Answers = QMap<QString, int>;

// Records every call: "*" is the start of a walk, "+" and "-" an element, "=" the end, "!" an
// error.
class Recorder : public DomVisitor
{
public:
    explicit Recorder(const Answers &handlerAnswers = {}) : answers(handlerAnswers) { }

    QStringList calls;

protected:
    void onVisitStarted(const QDomElement &element) override { calls += u'*' + element.tagName(); }
    void onVisitEnded(VisitCmd result) override { calls += u"=%1"_s.arg(result); }
    VisitCmd onElement(const QDomElement &element) override
    {
        return answer(u'+' + element.tagName());
    }
    VisitCmd onEndElement(const QDomElement &element) override
    {
        return answer(u'-' + element.tagName());
    }
    void onError(const QString &message) override
    {
        calls += u'!' + message;
        if (answers.contains(u"!"_s))
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

        const char tree[] = "<a><b><c/><d/></b><e/></a>";
        const char whole[] = "*a +a +b +c -c +d -d -b +e -e -a =0";
        const auto row = [&tree](const char *name, const Answers &answers, const char *calls) {
            QTest::newRow(name) << tree << answers << calls;
        };

        QTest::newRow("only elements") << "<a>x<!-- y --><b/><?p q?><![CDATA[z]]><c/></a>"
                                       << Answers() << "*a +a +b -b +c -c -a =0";
        QTest::newRow("prefix is part of the name") << "<p:a/>" << Answers() << "*p:a +p:a -p:a =0";
        row("whole tree", {}, whole);
        row("skip the root's children", {{u"+a"_s, DomVisitor::SkipChildren}}, "*a +a =0");
        row("skip one element's children", {{u"+b"_s, DomVisitor::SkipChildren}},
            "*a +a +b +e -e -a =0");
        row("stop on entering", {{u"+c"_s, DomVisitor::Stop}}, "*a +a +b +c =1");
        row("stop on leaving", {{u"-c"_s, DomVisitor::Stop}}, "*a +a +b +c -c =1");
        row("skip on leaving is continue", {{u"-c"_s, DomVisitor::SkipChildren}}, whole);
        row("unknown answers are continue", {{u"+b"_s, 7}, {u"-c"_s, -1}}, whole);
        row("exception on entering", {{u"+c"_s, throwException}}, "*a +a +b +c !exception =1");
        row("exception on leaving", {{u"-c"_s, throwException}}, "*a +a +b +c -c !exception =1");
        row("exception that is no std::exception", {{u"+a"_s, throwInt}}, "*a +a !exception =1");
    }

    void walk()
    {
        QFETCH(QString, xml);
        QFETCH(Answers, answers);

        Recorder visitor(answers);
        const QString message = visitor.visit(xml);
        QVERIFY(message.isEmpty() && !message.isNull());
        QTEST(visitor.calls.join(u' '), "calls");
    }

    void textThatDoesNotParse()
    {
        for (const QString &text : {QString(), u"<a><b></a>"_s}) {
            QString expected;
            QVERIFY(!QDomDocument().setContent(text, &expected) && !expected.isEmpty());
            Recorder visitor;
            QCOMPARE(visitor.visit(text), expected);
            QCOMPARE(visitor.calls, QStringList(u'!' + expected));
        }
    }

    void walkFromAnElement()
    {
        QDomDocument document;
        QVERIFY(document.setContent(u"<a><b/><c><d/></c><e/></a>"_s));
        const QDomElement start = document.documentElement().firstChildElement(u"c"_s);

        Recorder all;
        QCOMPARE(all.visit(start), DomVisitor::Continue);
        QCOMPARE(all.calls.join(u' '), u"*c +c +d -d -c +e -e =0"_s);

        Recorder step({{u"+e"_s, DomVisitor::Stop}});
        QCOMPARE(step.doVisit(start), DomVisitor::Stop);
        QCOMPARE(step.calls.join(u' '), u"+c +d -d -c +e"_s);

        Recorder none;
        QCOMPARE(none.visit(QDomElement()), DomVisitor::Continue);
        QCOMPARE(none.calls.join(u' '), u"* =0"_s);
    }

    // Outer levels must not catch what onError() throws, and not report it as another exception.
    void exceptionFromTheErrorHandlerPassesThrough()
    {
        Recorder visitor({{u"+c"_s, throwInt}, {u"!"_s, 0}});
        QVERIFY_EXCEPTION_THROWN(visitor.visit(u"<a><b><c/></b></a>"_s), std::logic_error);
        QCOMPARE(visitor.calls.join(u' '), u"*a +a +b +c !exception"_s);
    }
};

QTEST_GUILESS_MAIN(DomVisitorTest)
#include "DomVisitorTest.moc"
