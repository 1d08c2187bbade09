// SPDX-License-Identifier: MIT
#include "docs/example_extraction.h"

#include <algorithm>

namespace varnock::docs {

namespace {

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string_view trimmedEnd(std::string_view line) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\t'))
    line.remove_suffix(1);
  return line;
}

bool isInclude(std::string_view line) {
  const std::size_t start = line.find_first_not_of(" \t");
  return start != std::string_view::npos && line.substr(start).starts_with("#include");
}

constexpr std::string_view kCodeIndent = "//   ";

// Appends text and counts the lines it ends, so #line can point back into
// the generated file.
class SourceWriter {
 public:
  void line(std::string_view text) {
    out_.append(text).push_back('\n');
    ++lines_;
  }
  std::size_t nextLine() const { return lines_ + 1; }
  std::string take() { return std::move(out_); }

 private:
  std::string out_;
  std::size_t lines_ = 0;
};

std::string quoted(std::string_view text) {
  std::string q = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') q.push_back('\\');
    q.push_back(c);
  }
  return q + "\"";
}

}  // namespace

std::vector<Example> markdownExamples(std::string_view text) {
  const std::vector<std::string_view> lines = linesOf(text);
  std::vector<Example> examples;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (trimmedEnd(lines[i]) != "```cpp") continue;
    Example example{i + 2, {}};
    std::size_t j = i + 1;
    for (; j < lines.size() && !lines[j].starts_with("```"); ++j)
      example.lines.emplace_back(lines[j]);
    if (j == lines.size()) {
      throw ExtractionError("the ```cpp block of line " + std::to_string(i + 1) +
                            " is never closed");
    }
    examples.push_back(std::move(example));
    i = j;
  }
  return examples;
}

std::vector<Example> headerExamples(std::string_view text) {
  const std::vector<std::string_view> lines = linesOf(text);
  std::vector<Example> examples;
  bool afterBareLine = false;
  for (std::size_t i = 0; i < lines.size() && lines[i].starts_with("//"); ++i) {
    const std::string_view line = trimmedEnd(lines[i]);
    if (line == "//") {
      afterBareLine = true;
      continue;
    }
    if (afterBareLine && line.starts_with(kCodeIndent)) {
      Example example{i + 1, {}};
      for (; i < lines.size() && lines[i].starts_with(kCodeIndent); ++i)
        example.lines.emplace_back(lines[i].substr(kCodeIndent.size()));
      examples.push_back(std::move(example));
      --i;  // the loop looks at the line that ended the run
    }
    afterBareLine = false;
  }
  return examples;
}

std::string examplesSource(std::string_view documentPath, std::string_view name,
                           std::string_view generatedPath, const std::vector<Example>& examples) {
  SourceWriter out;
  out.line("// The examples of " + std::string(name) +
           ", made by extract_examples: edit the document, not this file.");
  if (examples.empty()) return out.take();

  out.line("#undef NDEBUG");
  out.line("#include <cassert>");
  out.line("#include <iostream>");
  out.line("#include <string>");
  out.line("");
  out.line("#include \"docs/example_registry.h\"");
  out.line("#include \"varnock/varnock.h\"");
  for (const Example& example : examples) {
    for (const std::string& line : example.lines) {
      if (isInclude(line)) out.line(line);
    }
  }
  out.line("");
  out.line("namespace {");
  for (std::size_t n = 0; n < examples.size(); ++n) {
    const Example& example = examples[n];
    const std::string function = "example" + std::to_string(n + 1);
    out.line("");
    out.line("void " + function + "() {");
    out.line("#line " + std::to_string(example.firstLine) + " " + quoted(documentPath));
    // An include keeps its line, blank, so the lines after it keep their numbers.
    for (const std::string& line : example.lines)
      out.line(isInclude(line) ? std::string() : line);
    out.line("#line " + std::to_string(out.nextLine() + 1) + " " + quoted(generatedPath));
    out.line("}");
    out.line("[[maybe_unused]] const bool registered" + std::to_string(n + 1) +
             " = varnock::docs::registerExample(" + quoted(name) + ", " +
             std::to_string(example.firstLine) + ", &" + function + ");");
  }
  out.line("");
  out.line("}  // namespace");
  return out.take();
}

}  // namespace varnock::docs
