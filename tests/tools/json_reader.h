// Test hook: a small JSON reader, so tests can check the tool's --json
// output by its structure rather than its spacing. Raises std::runtime_error
// on text that is not one JSON value.
#pragma once

#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace varnock::testing {

struct Json {
  enum class Kind { Null, Boolean, Number, String, Array, Object };
  Kind kind = Kind::Null;
  bool boolean = false;
  double number = 0.0;
  std::string text;
  std::vector<Json> items;
  std::map<std::string, Json> members;

  bool has(const std::string& key) const { return members.count(key) != 0; }
  const Json& operator[](const std::string& key) const {
    const auto it = members.find(key);
    if (it == members.end()) throw std::runtime_error("no key " + key);
    return it->second;
  }
  bool isNull() const { return kind == Kind::Null; }
};

class JsonReader {
 public:
  static Json parse(std::string_view text) {
    JsonReader reader(text);
    Json value = reader.value();
    reader.blanks();
    if (reader.at_ != text.size()) reader.fail("text after the value");
    return value;
  }

 private:
  explicit JsonReader(std::string_view text) : text_(text) {}

  [[noreturn]] void fail(const std::string& what) const {
    throw std::runtime_error("JSON: " + what + " at " + std::to_string(at_));
  }
  void blanks() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != std::string::npos)
      ++at_;
  }
  bool take(std::string_view word) {
    if (text_.substr(at_, word.size()) != word) return false;
    at_ += word.size();
    return true;
  }
  void expect(char c) {
    blanks();
    if (at_ >= text_.size() || text_[at_] != c) fail(std::string("expected ") + c);
    ++at_;
  }

  Json value() {
    blanks();
    if (at_ >= text_.size()) fail("no value");
    Json v;
    const char c = text_[at_];
    if (take("null")) return v;
    if (take("true") || take("false")) {
      v.kind = Json::Kind::Boolean;
      v.boolean = text_[at_ - 4] == 't';
      return v;
    }
    if (c == '"') {
      v.kind = Json::Kind::String;
      v.text = string();
      return v;
    }
    if (c == '[') {
      v.kind = Json::Kind::Array;
      ++at_;
      blanks();
      if (take("]")) return v;
      do {
        v.items.push_back(value());
        blanks();
      } while (take(","));
      expect(']');
      return v;
    }
    if (c == '{') {
      v.kind = Json::Kind::Object;
      ++at_;
      blanks();
      if (take("}")) return v;
      do {
        blanks();
        std::string key = string();
        expect(':');
        v.members[key] = value();
        blanks();
      } while (take(","));
      expect('}');
      return v;
    }
    const std::string rest(text_.substr(at_));
    char* end = nullptr;
    v.kind = Json::Kind::Number;
    v.number = std::strtod(rest.c_str(), &end);
    if (end == rest.c_str() || (c != '-' && (c < '0' || c > '9'))) fail("not a value");
    at_ += static_cast<std::size_t>(end - rest.c_str());
    return v;
  }

  std::string string() {
    if (!take("\"")) fail("expected a string");
    std::string out;
    while (at_ < text_.size() && text_[at_] != '"') {
      const char c = text_[at_++];
      if (static_cast<unsigned char>(c) < 0x20) fail("raw control character");
      if (c != '\\') {
        out += c;
        continue;
      }
      if (at_ >= text_.size()) fail("cut escape");
      const char e = text_[at_++];
      switch (e) {
        case 'n':
          out += '\n';
          break;
        case 't':
          out += '\t';
          break;
        case 'r':
          out += '\r';
          break;
        case 'b':
          out += '\b';
          break;
        case 'f':
          out += '\f';
          break;
        case 'u': {
          if (at_ + 4 > text_.size()) fail("cut escape");
          const unsigned code = std::stoul(std::string(text_.substr(at_, 4)), nullptr, 16);
          at_ += 4;
          appendUtf8(out, code);
          break;
        }
        default:
          out += e;
      }
    }
    if (!take("\"")) fail("unterminated string");
    return out;
  }

  // Code points of the Basic Multilingual Plane are all the tool escapes.
  static void appendUtf8(std::string& out, unsigned code) {
    if (code < 0x80) {
      out += static_cast<char>(code);
    } else if (code < 0x800) {
      out += static_cast<char>(0xC0 | (code >> 6));
      out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | (code >> 12));
      out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (code & 0x3F));
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace varnock::testing
