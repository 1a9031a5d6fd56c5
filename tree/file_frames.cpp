#include "tree/file_frames.h"

#include <algorithm>
#include <string>
#include <unordered_set>

#include "tree/circles.h"

namespace mdktoidl {

namespace {

bool isStructured(const Node& node) { return node.Kind().forward == Forward::inSequences; }

/// The files of one circle of includes stand in an order in which each needs only those before it
/// complete. Each includes the one before it first and the one behind it last, so that whichever is
/// read first, guarded against being read twice, all come out in that order.
class FileFrames {
 public:
  FileFrames(Root& root, Precedence& precedence)
      : root_(root), precedence_(precedence), numbering_(root.Nodes().size()) {
    for (const Node* node : root.Nodes()) {
      if (node == &root || node->isModule()) files_.push_back(static_cast<const FileScope*>(node));
    }
    numbering_.Number({files_.begin(), files_.end()});
    for (const FileScope* file : files_) names_.insert(file->ScopedFileName());
  }

  void Run() {
    FindIncludes();
    FindDemands();
    SortEdges(edges_);
    std::vector<Edge> hard;
    std::ranges::copy_if(edges_, std::back_inserter(hard), &Edge::isHard);
    const Ordering circles = OrderByDependencies(GraphOf(files_.size(), edges_));
    components_ = circles.component;
    const Ordering order = OrderByDependencies(GraphOf(files_.size(), hard));
    if (!order.cyclic.empty()) return ReportCircles(order, hard);
    places_.resize(files_.size());
    members_.resize(files_.size());
    for (const std::size_t file : order.order) {
      auto& members = members_[components_[file]];
      places_[file] = members.size();
      members.push_back(file);
    }
    FindForwards();
    for (std::size_t file = 0; file < files_.size(); ++file) Frame(file);
  }

 private:
  std::size_t FileOf(const Node& node) const { return numbering_.Of(*Module::GetFileNode(&node)); }

  bool areInOneCircle(std::size_t left, std::size_t right) const {
    return components_[left] == components_[right];
  }

  void FindIncludes() {
    included_.resize(files_.size());
    for (std::size_t file = 0; file < files_.size(); ++file) {
      included_[file] = files_[file]->Included();
      for (const Node* other : included_[file]) {
        if (numbering_.Of(*other) != file) AddEdge(file, numbering_.Of(*other), nullptr, false);
      }
    }
    if (!root_.hasOwnFile()) IncludeAll();
  }

  /// Whatever holds declarations is included by a main file without any.
  void IncludeAll() {
    std::vector<bool> isUsed(files_.size());
    for (const Node* node : root_.Nodes()) {
      if (node->isDeclared() && !node->isModule()) isUsed[FileOf(*node)] = true;
    }
    for (std::size_t file = 1; file < files_.size(); ++file) {
      if (!isUsed[file]) continue;
      included_.front().push_back(files_[file]);
      AddEdge(0, file, nullptr, false);
    }
  }

  void FindDemands() {
    for (const Node* node : root_.Nodes()) {
      for (const Use& use : node->Used()) {
        precedence_.ForEachDemand(use, [this](const Demand& demand) {
          if (FileOf(*demand.before) != FileOf(*demand.after)) demands_.push_back(demand);
        });
      }
    }
    std::vector<const Node*> usedByMain;
    for (const Demand& demand : demands_) {
      const std::size_t file = FileOf(*demand.after);
      const std::size_t other = FileOf(*demand.before);
      AddEdge(file, other, &demand, isHard(demand));
      if (file == 0) usedByMain.push_back(files_[other]);
    }
    std::ranges::sort(usedByMain, {}, &Node::Serial);
    usedByMain.erase(std::unique(usedByMain.begin(), usedByMain.end()), usedByMain.end());
    included_.front().insert(included_.front().end(), usedByMain.begin(), usedByMain.end());
  }

  /// Compilers want a struct defined in the file that declares it.
  static bool isHard(const Demand& demand) { return demand.isHard || isStructured(*demand.before); }

  void AddEdge(std::size_t from, std::size_t to, const Demand* demand, bool isHard) {
    edges_.push_back({from, to, demand, isHard});
  }

  void ReportCircles(const Ordering& order, const std::vector<Edge>& hard) {
    std::vector<bool> isTold(files_.size());
    for (const std::size_t file : order.cyclic) {
      if (isTold[order.component[file]]) continue;
      isTold[order.component[file]] = true;
      Report(CircleOf(Message::filesAreCircular, *files_[file],
                      ShortestCircle(file, files_.size(), hard)));
    }
  }

  /// What a file uses of others that come behind it.
  void FindForwards() {
    forwards_.resize(files_.size());
    for (const Demand& demand : demands_) {
      const std::size_t file = FileOf(*demand.after);
      const std::size_t other = FileOf(*demand.before);
      if (!areInOneCircle(file, other) || places_[other] < places_[file]) continue;
      forwards_[file].push_back(root_.Nodes()[demand.before->Serial()]);
    }
  }

  void Frame(std::size_t file) {
    const bool isOnCircle = members_[components_[file]].size() > 1;
    const bool isMain = file == 0;
    const bool isDeep =
        !isMain && files_[file]->Scope() != nullptr && files_[file]->Scope()->Scope() != nullptr;
    const bool isMistaken = std::ranges::any_of(
        included_[file], [&](const Node* other) { return isFoundNearer(file, *other); });
    const bool isPlain = !isOnCircle && !isDeep && !isMistaken;
    if (isPlain && (!isMain || included_[file].empty())) return;
    FileFrame frame;
    if (isOnCircle) {
      SortByCreation(forwards_[file]);
      frame.forwards = std::move(forwards_[file]);
      IncludeNeighbours(file, frame);
    } else {
      for (const Node* other : included_[file]) frame.before.push_back(PathFrom(file, *other));
    }
    FileScope& scope = static_cast<FileScope&>(*root_.Nodes()[files_[file]->Serial()]);
    scope.SetFrame(std::move(frame));
    scope.Report(Message::fileFramed);
  }

  void IncludeNeighbours(std::size_t file, FileFrame& frame) const {
    for (const Node* other : included_[file]) {
      if (areInOneCircle(file, numbering_.Of(*other))) continue;
      frame.before.push_back(PathFrom(file, *other));
    }
    const auto& members = members_[components_[file]];
    const std::size_t place = places_[file];
    if (place > 0) frame.before.push_back(PathFrom(file, *files_[members[place - 1]]));
    if (place + 1 < members.size()) {
      frame.behind.push_back(PathFrom(file, *files_[members[place + 1]]));
    }
  }

  /// Preprocessors look beside the file that includes, first: what they would find there of the
  /// same path is another file.
  bool isFoundNearer(std::size_t file, const Node& other) const {
    const std::string own = files_[file]->ScopedFileName();
    const std::size_t slash = own.rfind('/');
    if (slash == std::string::npos) return false;
    const std::string& path = static_cast<const FileScope&>(other).ScopedFileName();
    return names_.contains(own.substr(0, slash + 1) + path);
  }

  /// The path by which a file includes another.
  std::string PathFrom(std::size_t file, const Node& other) const {
    std::string path = static_cast<const FileScope&>(other).ScopedFileName();
    if (!isFoundNearer(file, other)) return path;
    const std::string own = files_[file]->ScopedFileName();
    for (auto left = std::ranges::count(own, '/'); left > 0; --left) path.insert(0, "../");
    return path;
  }

  Root& root_;
  Precedence& precedence_;
  Numbering numbering_;
  std::vector<const FileScope*> files_;  // the main file is the first
  std::unordered_set<std::string> names_;
  // By the numbers of files.
  std::vector<std::vector<const Node*>> included_;
  std::vector<NodeList> forwards_;
  std::vector<std::size_t> components_;            // circles of includes
  std::vector<std::vector<std::size_t>> members_;  // of these
  std::vector<std::size_t> places_;                // among the members
  std::vector<Demand> demands_;                    // from file to file
  std::vector<Edge> edges_;
};

}  // namespace

void FrameFiles(Root& root, Precedence& precedence) { FileFrames(root, precedence).Run(); }

}  // namespace mdktoidl
