#include "platform/winapi/posix/CommandLine.h"

#include <algorithm>

namespace ovrin {

namespace {

constexpr std::u16string_view separators = u" \t";

class Splitter {
public:
    explicit Splitter(std::u16string_view text) : rest_(text) {}

    // False at the end of the text.
    bool SkipSeparators() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(separators), rest_.size()));
        return !rest_.empty();
    }

    std::u16string TakeElement() {
        element_.clear();
        grouped_ = false;
        while (!rest_.empty() && (grouped_ || separators.find(rest_.front()) == std::u16string_view::npos)) {
            TakeUnit();
        }
        return element_;
    }

private:
    void TakeUnit() {
        switch (rest_.front()) {
        case u'\\': return TakeBackslashes();
        case u'"': return TakeQuote();
        default: return Append(1);
        }
    }

    void TakeBackslashes() {
        const std::size_t count = std::min(rest_.find_first_not_of(u'\\'), rest_.size());
        if (count == rest_.size() || rest_[count] != u'"') {
            return Append(count);
        }
        element_.append(count / 2, u'\\');
        rest_.remove_prefix(count);
        if (count % 2 == 1) {
            Append(1);
        }
    }

    void TakeQuote() {
        rest_.remove_prefix(1);
        if (grouped_ && !rest_.empty() && rest_.front() == u'"') {
            return Append(1);
        }
        grouped_ = !grouped_;
    }

    void Append(std::size_t count) {
        element_.append(rest_.substr(0, count));
        rest_.remove_prefix(count);
    }

    std::u16string_view rest_;
    std::u16string element_;
    bool grouped_ = false;
};

} // namespace

std::vector<std::u16string> SplitCommandLine(std::u16string_view commandLine) {
    std::vector<std::u16string> elements;
    Splitter splitter(commandLine);
    while (splitter.SkipSeparators()) {
        elements.push_back(splitter.TakeElement());
    }
    return elements;
}

} // namespace ovrin
