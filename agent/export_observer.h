// Somebody who follows a run from inside the process: the command does, other hosts don't.
//
// All functions are called by the run, on its thread. What they are given is the run's and is gone
// when it ends. They may ask the model, but not change it.
#pragma once

namespace mdktoidl {

struct Diagnostic;
class Root;

class ExportObserver {
 public:
  virtual ~ExportObserver() = default;

  /// The tree is built; no file was touched so far. False refuses the export: what is wrong with
  /// the tree is still told, but nothing is written.
  virtual bool Built(const Root& root) = 0;

  /// The tree is evaluated: it knows what each declaration uses. After an abort it is so only as
  /// far as the evaluation came.
  virtual void Evaluated(const Root& root) = 0;

  /// Something is told to the user: a warning, an error or the reason of an abort.
  virtual void Told(const Diagnostic& diagnostic) = 0;
};

/// The observer of the current run; null for none, and between runs.
extern ExportObserver* observer;

}  // namespace mdktoidl
