#include "framework/ui/qt_text.h"

#include <QByteArrayView>
#include <QStringDecoder>

namespace sumlet {

QString ToQString(std::string_view utf8) {
  // QString::fromUtf8 would drop a leading U+FEFF, which is a character of the text like any other here.
  using Flag = QStringConverter::Flag;
  QStringDecoder decoder(QStringConverter::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
  return decoder.decode(QByteArrayView(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

String FromQString(const QString& text) { return text.toStdString(); }

QString SpokenText(std::string_view utf8) {
  constexpr Int32 mostCharacters = 1000;
  return ToQString(Left(utf8, mostCharacters));
}

}  // namespace sumlet
