#include "command/report.h"

#include <unistd.h>

#include <cstdio>

#include "diagnostics/colour.h"
#include "diagnostics/forms.h"

namespace command {

using diagnostics::ColouredPiece;
using diagnostics::Diagnostic;
using diagnostics::GccForm;
using diagnostics::Severity;

Report::Report(const Options& options, StandardOutput& output, Progress& progress)
    : options_(options),
      output_(output),
      progress_(progress),
      colouredOutput_(diagnostics::UsesColour(options.colour, STDOUT_FILENO)),
      colouredErrors_(diagnostics::UsesColour(options.colour, STDERR_FILENO)) {}

bool Report::IsDocument() const {
  return options_.diagnostics == DiagnosticForm::kJson ||
         options_.diagnostics == DiagnosticForm::kSarif;
}

bool Report::IsResultOnOutput() const {
  return options_.purpose == Purpose::kVerify || options_.purpose == Purpose::kOutputs;
}

/// Results that others read are not to be mixed with it.
void Report::AgentText(const std::string& piece) {
  if (IsDocument()) return;
  if (IsResultOnOutput()) return WriteError(colouredErrors_ ? ColouredPiece(piece) : piece);
  progress_.Hide();
  output_.Write(colouredOutput_ ? ColouredPiece(piece) : piece);
}

void Report::AddTold(const Diagnostic& diagnostic) {
  const bool isNew = Keep(diagnostic);
  if (isNew && options_.diagnostics == DiagnosticForm::kGcc) Tell(diagnostic);
}

void Report::Add(const Diagnostic& diagnostic) {
  const bool isNew = Keep(diagnostic);
  if (isNew && !IsDocument()) Tell(diagnostic);
}

std::size_t& Report::CountOf(Severity severity) {
  if (severity == Severity::kNote) return notes_;
  return severity == Severity::kError ? errors_ : warnings_;
}

bool Report::Keep(const Diagnostic& diagnostic) {
  if (!kept_.insert(diagnostic).second) return false;
  ++CountOf(diagnostic.severity);
  if (IsDocument()) document_.push_back(diagnostic);
  return true;
}

void Report::Tell(const Diagnostic& diagnostic) {
  WriteError(GccForm({&diagnostic, 1}, colouredErrors_));
}

void Report::Fail(const std::string& text) {
  Say(text);
  Diagnostic failure;
  failure.severity = Severity::kError;
  failure.text = text;
  failure.rule = "failure";
  Keep(failure);
}

void Report::FailToRead(const xmi::ReadError& error) {
  Diagnostic diagnostic;
  diagnostic.severity = Severity::kError;
  diagnostic.text = error.Text();
  diagnostic.rule = "model-unreadable";
  diagnostic.location = error.Where();
  Keep(diagnostic);
  if (options_.diagnostics == DiagnosticForm::kGcc) return Tell(diagnostic);
  Say(error.what());
}

void Report::Say(const std::string& text) { WriteError("idlexport: " + text + "\n"); }

void Report::WriteError(const std::string& text) {
  progress_.Hide();
  std::fwrite(text.data(), 1, text.size(), stderr);
}

void Report::Result(const std::string& text) {
  if (IsDocument()) return WriteError(text);
  progress_.Hide();
  output_.Write(text);
}

int Report::ResultStream() {
  progress_.Hide();
  if (IsDocument()) return STDERR_FILENO;
  output_.Finish();
  return STDOUT_FILENO;
}

void Report::Finish() {
  if (options_.diagnostics == DiagnosticForm::kJson)
    output_.Write(diagnostics::JsonForm(document_));
  if (options_.diagnostics == DiagnosticForm::kSarif)
    output_.Write(diagnostics::SarifForm(document_));
}

}  // namespace command
