#include "agent/diagnostics.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "agent/export_observer.h"
#include "agent/message_output.h"

namespace mdktoidl {

ExportObserver* observer = nullptr;

std::list<Diagnostic> errors;
std::list<Diagnostic> warnings;
std::list<Diagnostic> remarks;

std::string TextOf(const Diagnostic& diagnostic) {
  constexpr std::string_view placeholder = "{}";
  std::string_view rest = Text(diagnostic.message);
  std::string text;
  for (const std::string& piece : diagnostic.pieces) {
    const std::size_t position = rest.find(placeholder);
    text.append(rest.substr(0, position)).append(piece);
    rest.remove_prefix(position + placeholder.size());
  }
  return text.append(rest);
}

void Report(Diagnostic diagnostic) {
  switch (SeverityOf(diagnostic.message)) {
    case Severity::silent:
      return;
    case Severity::note:
    case Severity::remark:
      return remarks.push_back(std::move(diagnostic));
    case Severity::warning:
      return warnings.push_back(std::move(diagnostic));
    default:
      errors.push_back(std::move(diagnostic));
  }
}

void Report(Message message, mdk::IMdeEntity* element,
            std::initializer_list<std::string_view> pieces) {
  Report({message, element, {pieces.begin(), pieces.end()}});
}

void TellObserver(const Diagnostic& diagnostic) {
  if (observer != nullptr) observer->Told(diagnostic);
}

void Tell(const Diagnostic& diagnostic) {
  Print(TextOf(diagnostic) + "\n");
  TellObserver(diagnostic);
}

namespace {

/// The texts of a list's diagnostics, each once and in order. The list itself is put into that
/// order, and keeps one diagnostic of each text and element. It is as it was when memory runs out.
std::vector<std::string> Sort(std::list<Diagnostic>& list) {
  struct Entry {
    std::string text;
    std::size_t number;  // in the order found, which stays among equal texts
    std::list<Diagnostic>::iterator place;
  };
  std::vector<Entry> byText;
  for (auto each = list.begin(); each != list.end(); ++each) {
    byText.push_back({TextOf(*each), byText.size(), each});
  }
  std::ranges::sort(byText, {},
                    [](const Entry& entry) { return std::tie(entry.text, entry.number); });
  std::vector<std::string> texts;
  std::vector<bool> isTwice;
  std::unordered_set<const mdk::IMdeEntity*> elements;  // that the last text is said of
  for (const auto& [text, number, place] : byText) {
    if (texts.empty() || texts.back() != text) {
      elements.clear();
      texts.push_back(text);
    }
    isTwice.push_back(!elements.insert(place->element).second);
  }
  for (std::size_t i = 0; i < byText.size(); ++i) {
    list.splice(list.end(), list, byText[i].place);
    if (isTwice[i]) list.pop_back();
  }
  return texts;
}

void PrintList(const std::vector<std::string>& texts, const std::list<Diagnostic>& diagnostics,
               const std::string& heading) {
  for (const std::string& text : texts) {
    Print(heading);
    Print(text);
    Print("\n");
  }
  if (observer == nullptr) return;
  for (const Diagnostic& each : diagnostics) observer->Told(each);
}

}  // namespace

void PrintMessages() {
  const std::vector<std::string> warningTexts = Sort(warnings);
  const std::vector<std::string> errorTexts = Sort(errors);
  PrintList(warningTexts, warnings, headings::warning);
  PrintList(errorTexts, errors, headings::error);
  if (observer != nullptr) {
    for (const Diagnostic& each : remarks) observer->Told(each);
  }
  if (errors.empty() && warnings.empty()) return;
  Print("There were " + std::to_string(errorTexts.size()) + " errors and " +
        std::to_string(warningTexts.size()) + " warnings");
}

void ClearMessages() {
  errors.clear();
  warnings.clear();
  remarks.clear();
}

}  // namespace mdktoidl
