#pragma once

#include <QByteArray>

// How libFuzzer changes documents: as people do, because changes of bytes alone seldom leave one
// well-formed. Every fourth time it begins with one of those remembered here, as errors lead to
// more code and would crowd out the correct ones.
void rememberCorrect(const QByteArray &document);
