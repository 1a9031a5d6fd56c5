#include "command/message_sink.h"

namespace command {
namespace {

/// What stands before the text of each error, as a piece of its own.
constexpr std::string_view errorMark = "Error - ";
constexpr std::string_view abortedText = "\nIDL exporter aborted.\n";
constexpr std::string_view openFailedText = "IDL exporter failed to open file ";

bool SaysThatExportFailed(std::string_view piece) {
  return piece == errorMark || piece == abortedText || piece.starts_with(openFailedText);
}

}  // namespace

void MessageSink::Print(const std::string& piece) {
  exportFailed_ = exportFailed_ || SaysThatExportFailed(piece);
  output_.Write(piece);
}

}  // namespace command
