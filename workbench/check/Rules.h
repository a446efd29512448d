#pragma once

#include "check/Finding.h"

/** What the shape does not tell, a function for each format. */
void checkEntries(const Document &document, const QString &product, Findings &findings);
void checkTools(const Document &document, const QString &product, Findings &findings);
void checkMenus(const Document &document, Findings &findings);

/** That an attribute, where there is one, is a name: not empty, and without blanks at its ends. */
bool checkName(const XmlElement &element, const char *attribute, Findings &findings);

/** What Qt says of a style sheet when it is used; empty when it says nothing. */
QString styleSheetComplaint(const QString &styleSheet);
