#include "xmi/text/document.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "xmi/text/encoding.h"
#include "xmi/text/scanning.h"

namespace xmi {
namespace {

// Text that is white space alone is kept where it is all that an element holds: it may be a name or
// a value. The text of an element lies in the element itself, which saves a node. What stands
// beside the root element is kept to be refused.
constexpr unsigned kParseOptions = pugi::parse_default | pugi::parse_ws_pcdata_single |
                                   pugi::parse_embed_pcdata | pugi::parse_fragment;
constexpr std::string_view kMayBeLast = "> \t\r\n";

std::string Bytes(const std::string& path) {
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) {
    throw ReadError({path}, "is a directory");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) throw ReadError({path}, std::strerror(errno));
  const auto requireRoom = [&](std::uintmax_t size) {
    if (size >= Document::kNowhere) throw ReadError({path}, "is too large");
  };
  std::string bytes;
  // What has no size of its own (a pipe) or has grown is read to its end like everything else.
  if (const auto size = std::filesystem::file_size(path, error); !error) {
    requireRoom(size);
    bytes.reserve(size);
  }
  for (std::array<char, 65536> part; file.read(part.data(), part.size()), file.gcount() > 0;) {
    bytes.append(part.data(), static_cast<std::size_t>(file.gcount()));
    requireRoom(bytes.size());
  }
  if (file.bad()) throw ReadError({path}, "can't be read");
  return bytes;
}

bool StartsAsHtml(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const std::string head = Lowered(text.substr(0, 14));
  return head == "<!doctype html" || head.starts_with("<html");
}

std::string ErrorText(const pugi::xml_parse_result& result) {
  if (result.status == pugi::status_end_element_mismatch) {
    return "is no well-formed XML: an end tag doesn't match its start tag, or the text ends early";
  }
  return std::string("is no well-formed XML: ") + result.description();
}

}  // namespace

std::unique_ptr<Document> Document::Load(const std::string& path) {
  return Parse(path, Bytes(path));
}

std::unique_ptr<Document> Document::Parse(const std::string& path, std::string text) {
  std::unique_ptr<Document> document(new Document(path));
  document->Fill(std::move(text));
  return document;
}

void Document::Fill(std::string text) {
  const EncodingError error = ToUtf8(text);
  text_ = std::make_shared<std::string>(std::move(text));
  if (text_->size() >= kNowhere) throw ReadError({path_}, "is too large");
  IndexLines();
  if (text_->find_first_not_of(kBlanks) == std::string::npos) {
    throw ReadError({path_}, "is empty");
  }
  // A page that an address answered with says more than what is wrong with its encoding.
  if (StartsAsHtml(*text_)) Fail(0, "is an HTML page, no UML model");
  if (!error.text.empty()) Fail(error.offset, error.text);
  tree_ = std::make_unique<pugi::xml_document>();
  // The parser passes over the last character, which is fine for what may be the last one.
  if (kMayBeLast.find(text_->back()) == std::string_view::npos) text_->push_back('\n');
  const pugi::xml_parse_result result =
      tree_->load_buffer_inplace(text_->data(), text_->size(), kParseOptions, pugi::encoding_utf8);
  if (!result) Fail(static_cast<std::size_t>(result.offset), ErrorText(result));
  RequireOneRoot();
}

// Two files in one, or what a failed merge left: the rest would be lost without a word.
void Document::RequireOneRoot() const {
  if (!Root()) Fail(0, "is no XML: there is no element in it");
  for (const pugi::xml_node node : tree_->children()) {
    if (node == Root()) continue;
    const bool isElement = node.type() == pugi::node_element;
    const char* const begin = isElement ? node.name() : node.value();
    const auto offset =
        static_cast<std::size_t>(begin - text_->data()) + std::strspn(begin, kBlanks.data());
    Fail(offset, std::string("is no well-formed XML: there is ") +
                     (isElement ? "another element" : "text") + " beside its root element");
  }
}

// The parser writes into the text, so the lines are counted before it runs.
void Document::IndexLines() {
  lineStarts_.push_back(0);
  const char* const begin = text_->data();
  const char* const end = begin + text_->size();
  for (const char* at = begin; at != end;) {
    at = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (at == nullptr) break;
    ++at;
    lineStarts_.push_back(static_cast<std::uint32_t>(at - begin));
  }
}

Location Document::Locate(std::uint32_t offset) const {
  if (offset == kNowhere) return {path_, 0, 0};
  const auto next = std::upper_bound(lineStarts_.begin(), lineStarts_.end(), offset);
  const auto line = static_cast<std::size_t>(next - lineStarts_.begin());
  return {path_, line, std::max<std::size_t>(Characters(lineStarts_[line - 1], offset), 1)};
}

/// How many characters a part of the text has. In a line that nobody can read, such as a whole
/// model on one, counting would cost more than it tells; there it is the bytes.
std::size_t Document::Characters(std::uint32_t begin, std::uint32_t end) const {
  constexpr std::uint32_t longest = 10'000;
  if (end - begin > longest) return end - begin;
  const auto isFirstByte = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  };
  return static_cast<std::size_t>(
      std::count_if(text_->begin() + begin, text_->begin() + end, isFirstByte));
}

void Document::Fail(std::size_t offset, const std::string& text) const {
  throw ReadError(Locate(static_cast<std::uint32_t>(offset)), text);
}

std::string UriOf(const std::string& path) {
  return path.find('/') == std::string::npos ? "./" + path : path;
}

std::string_view TextOf(pugi::xml_node element, std::string& buffer) {
  const std::string_view own = element.value();
  if (!element.first_child()) return own;
  buffer = own;
  for (const pugi::xml_node child : element.children()) {
    if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
      buffer += child.value();
    }
  }
  return buffer;
}

}  // namespace xmi
