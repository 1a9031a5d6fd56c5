// idlexport_bench: the export of every shape of model, in sizes from a thousand to a million
// members, in one process: reading the file, the agent's run, writing.
//
// Beside the time: members and bytes of the model a second, the memory at its peak for each member,
// and the exponent by which the processor time grew from the size before.
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

#include "agent/export_run.h"
#include "bench/shapes.h"
#include "model/model.h"
#include "xmi/reader.h"

namespace {

namespace fs = std::filesystem;

constexpr int fewest = 1'000;
constexpr int most = 1'000'000;
constexpr int step = 10;

/// A number of kilobytes from the process's status; 0 where there is no such file.
double StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(name + ":")) return std::atof(line.c_str() + name.size() + 1);
  }
  return 0;
}

/// The memory that something takes at its peak, above what is taken before.
class PeakMemory {
 public:
  PeakMemory() : before_(StatusOf("VmRSS")) { std::ofstream("/proc/self/clear_refs") << "5"; }
  double Bytes() const { return 1024 * (StatusOf("VmHWM") - before_); }

 private:
  double before_;
};

void Export(const std::string& file) {
  model::Model model;
  xmi::Reader reader(model);
  reader.Read(file);
  model::SetMessageSink([](const std::string& text) { benchmark::DoNotOptimize(text.data()); });
  mdktoidl::RunExport(reader.Artifacts().front());
  model::SetMessageSink({});
}

class ShapeBenchmark {
 public:
  explicit ShapeBenchmark(const bench::Shape& shape) : shape_(shape) {}

  void operator()(benchmark::State& state) {
    const auto members = static_cast<std::size_t>(state.range(0));
    const std::string file = std::string(shape_.name) + ".uml";
    std::ofstream out(file);
    bench::WriteModel(shape_, members, out);
    out.close();
    const PeakMemory peak;
    state.SetComplexityN(state.range(0));
    const std::clock_t start = std::clock();
    for (auto _ : state) Export(file);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    Count(state, members, seconds / static_cast<double>(state.iterations()));
    state.counters["bytes/member"] = peak.Bytes() / static_cast<double>(members);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(fs::file_size(file)));
    fs::remove(file);
  }

 private:
  /// The sizes are measured in ascending order, several times each: the last figure counts.
  void Count(benchmark::State& state, std::size_t members, double seconds) {
    if (members < size_) smaller_ = 0;
    if (members > size_ && size_ != 0) {
      smaller_ = size_;
      smallerSeconds_ = seconds_;
    }
    size_ = members;
    seconds_ = seconds;
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(members));
    if (smaller_ == 0) return;
    state.counters["exponent"] =
        std::log(seconds / smallerSeconds_) /
        std::log(static_cast<double>(members) / static_cast<double>(smaller_));
  }

  const bench::Shape& shape_;
  std::size_t size_ = 0;
  double seconds_ = 0;
  std::size_t smaller_ = 0;  // the size before; 0 for none
  double smallerSeconds_ = 0;
};

/// A directory for the files, which is the current one until it is removed.
class Workplace {
 public:
  Workplace() : before_(fs::current_path()) {
    std::string name = (fs::temp_directory_path() / "idlexport-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::perror("mkdtemp"), std::exit(1);
    directory_ = name;
    fs::current_path(directory_);
  }
  ~Workplace() {
    fs::current_path(before_);
    fs::remove_all(directory_);
  }
  Workplace(const Workplace&) = delete;
  Workplace& operator=(const Workplace&) = delete;

 private:
  fs::path before_;
  fs::path directory_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  for (const bench::Shape& shape : bench::Shapes()) {
    benchmark::RegisterBenchmark(std::string(shape.name).c_str(), ShapeBenchmark(shape))
        ->RangeMultiplier(step)
        ->Range(fewest, most)
        ->Unit(benchmark::kMillisecond)
        ->Complexity();
  }
  const Workplace workplace;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
