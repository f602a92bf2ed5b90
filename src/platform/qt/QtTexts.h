#pragma once

#include <QTranslator>

#include <string>

namespace tarragon {

// Shows texts in the words of a wording catalogue, for as long as it lives. Made after the toolkit's application object
// and gone before it. Main thread only.
class QtTexts {
public:
    // The path of a compiled catalogue. Texts that it lacks are shown as their sources read.
    explicit QtTexts(const std::string& catalogue);
    ~QtTexts();
    QtTexts(const QtTexts&) = delete;
    QtTexts& operator=(const QtTexts&) = delete;

private:
    QTranslator _translator;
};

} // namespace tarragon
