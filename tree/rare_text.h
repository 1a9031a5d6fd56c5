// A text that few declarations have: no larger than a pointer while it is empty.
//
// A tree has a node for each of a million declarations, and their size decides how fast it is
// walked.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace mdktoidl {

class RareText {
 public:
  RareText& operator=(std::string&& text) {
    text_ = text.empty() ? nullptr : std::make_unique<const std::string>(std::move(text));
    return *this;
  }

  bool empty() const { return text_ == nullptr; }
  std::string_view Text() const { return empty() ? std::string_view() : *text_; }

 private:
  std::unique_ptr<const std::string> text_;
};

}  // namespace mdktoidl
