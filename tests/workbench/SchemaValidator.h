#pragma once

#include "format/Format.h"

#include <libxml/relaxng.h>

#include <map>
#include <memory>

/** What libxml2 makes of documents by the schemas that the workbench prints. */
class SchemaValidator
{
public:
    SchemaValidator() { xmlSetGenericErrorFunc(nullptr, ignore); }

    /** Whether the schema of its format accepts a document, which is well-formed. */
    bool accepts(const Quenda::Workbench::Format &format, const QByteArray &content)
    {
        if (schemas.find(&format) == schemas.end())
            schemas.emplace(&format, Schema(parse(format), xmlRelaxNGFree));
        const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
            xmlReadMemory(content.constData(), content.size(), nullptr, "UTF-8",
                          XML_PARSE_NONET | XML_PARSE_IGNORE_ENC | XML_PARSE_NOERROR
                              | XML_PARSE_NOWARNING),
            xmlFreeDoc);
        const std::unique_ptr<xmlRelaxNGValidCtxt, decltype(&xmlRelaxNGFreeValidCtxt)> context(
            xmlRelaxNGNewValidCtxt(schemas.at(&format).get()), xmlRelaxNGFreeValidCtxt);
        return document && xmlRelaxNGValidateDoc(context.get(), document.get()) == 0;
    }

private:
    static void ignore(void *, const char *, ...) { }

    using Schema = std::unique_ptr<xmlRelaxNG, decltype(&xmlRelaxNGFree)>;

    static xmlRelaxNGPtr parse(const Quenda::Workbench::Format &format)
    {
        const QByteArray text = Quenda::Workbench::schemaText(format.schema);
        const std::unique_ptr<xmlRelaxNGParserCtxt, decltype(&xmlRelaxNGFreeParserCtxt)> context(
            xmlRelaxNGNewMemParserCtxt(text.constData(), text.size()), xmlRelaxNGFreeParserCtxt);
        xmlRelaxNGPtr schema = xmlRelaxNGParse(context.get());
        if (!schema)
            qFatal("libxml2 cannot read the schema:\n%s", text.constData());
        return schema;
    }

    std::map<const Quenda::Workbench::Format *, Schema> schemas;
};
