#include "agent/diagnostics.h"

#include "agent/message_output.h"

namespace mdktoidl {

std::list<std::string> errors;
std::list<std::string> warnings;

std::string Compose(Message message, std::initializer_list<std::string_view> pieces) {
  constexpr std::string_view gap = "{}";
  std::string_view rest = Text(message);
  std::string text;
  for (std::string_view piece : pieces) {
    const std::size_t position = rest.find(gap);
    text.append(rest.substr(0, position)).append(piece);
    rest.remove_prefix(position + gap.size());
  }
  return text.append(rest);
}

void Report(Message message, std::initializer_list<std::string_view> pieces) {
  std::list<std::string>& list = SeverityOf(message) == Severity::error ? errors : warnings;
  list.push_back(Compose(message, pieces));
}

namespace {

void PrintList(std::list<std::string>& texts, const std::string& heading) {
  texts.sort();
  texts.unique();
  for (const std::string& text : texts) {
    Print(heading);
    Print(text);
    Print("\n");
  }
}

}  // namespace

void PrintMessages() {
  PrintList(warnings, "Warning - ");
  PrintList(errors, "Error - ");
  if (errors.empty() && warnings.empty()) return;
  Print("There were " + std::to_string(errors.size()) + " errors and " +
        std::to_string(warnings.size()) + " warnings");
}

void ClearMessages() {
  errors.clear();
  warnings.clear();
}

}  // namespace mdktoidl
