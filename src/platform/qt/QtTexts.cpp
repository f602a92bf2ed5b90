#include "platform/qt/QtTexts.h"

#include "platform/Log.h"
#include "platform/Texts.h"

#include <QCoreApplication>

namespace tarragon {

QtTexts::QtTexts(const std::string& catalogue) {
    if (!_translator.load(QString::fromStdString(catalogue)) || !QCoreApplication::installTranslator(&_translator))
        log(LogCategory::Settings, [&] { return "no wording catalogue at " + catalogue; });
    setTextTranslator([](const char* context, const char* source) {
        return QCoreApplication::translate(context, source).toStdString();
    });
}

QtTexts::~QtTexts() {
    setTextTranslator(nullptr);
    QCoreApplication::removeTranslator(&_translator);
}

} // namespace tarragon
