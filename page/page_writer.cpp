#include "page/page_writer.h"

#include <algorithm>
#include <string_view>

#include "calls/columns.h"
#include "page/assets.h"
#include "page/escape.h"

namespace {

constexpr std::size_t STATIC_ROWS = 500;  // that are shown without the script

std::vector<std::string_view> values_of(std::string_view row) {
    std::vector<std::string_view> values;
    for (std::size_t tab = row.find('\t'); tab != std::string_view::npos; tab = row.find('\t')) {
        values.push_back(row.substr(0, tab));
        row.remove_prefix(tab + 1);
    }
    values.push_back(row);
    return values;
}

// Of each column, whether the list shows it: those that a call fills, and some that are always there.
std::vector<bool> shown_columns(const std::vector<std::string>& calls) {
    std::vector<bool> shown;
    for (const std::string_view name : values_of(CALL_COLUMNS)) {
        shown.push_back(name == "no" || name == "result" || name == "cause");
    }
    for (const std::string& call : calls) {
        const std::vector<std::string_view> values = values_of(call);
        for (std::size_t i = 0; i < shown.size(); ++i) {
            shown[i] = shown[i] || values[i] != "-";
        }
    }
    return shown;
}

void write_row(OutputStream& page, std::string_view row, const std::vector<bool>& shown, std::string_view cell) {
    const std::vector<std::string_view> values = values_of(row);
    page.write("<tr>");
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (shown[i]) {
            page.write("<" + std::string(cell) + ">" + html_text(values[i]));
        }
    }
    page.write("\n");
}

// End tags of cells and rows may be left out.
void write_table(OutputStream& page, const std::vector<std::string>& calls) {
    const std::vector<bool> shown = shown_columns(calls);
    page.write("<thead>\n");
    write_row(page, CALL_COLUMNS, shown, "th scope=\"col\"");
    page.write("<tbody>\n");
    for (std::size_t i = 0; i < std::min(calls.size(), STATIC_ROWS); ++i) {
        write_row(page, calls[i], shown, "td");
    }
}

void write_call_data(OutputStream& page, const std::vector<std::string>& calls) {
    page.write(CALL_COLUMNS);
    page.write("\n");
    for (const std::string& call : calls) {
        std::string data;
        append_values(data, call);
        page.write(data + "\n");
    }
}

void write_policy(OutputStream& page) {
    page.write("default-src 'none'; script-src '");
    page.write(PAGE_SCRIPT_HASH);
    page.write("'; style-src '");
    page.write(PAGE_STYLE_HASH);
    page.write("'; base-uri 'none'; form-action 'none'; require-trusted-types-for 'script'; trusted-types 'none'");
}

void write_part(OutputStream& page, std::string_view name, const PageContents& contents, const FrameData& frames) {
    if (name == "policy") {
        write_policy(page);
    } else if (name == "style") {
        page.write(PAGE_STYLE);
    } else if (name == "title") {
        page.write(html_text(contents.title));
    } else if (name == "facts") {
        page.write(html_text(contents.facts));
    } else if (name == "calls") {
        write_table(page, contents.calls);
    } else if (name == "call data") {
        write_call_data(page, contents.calls);
    } else if (name == "frame data") {
        frames.write(page);
    } else if (name == "script") {
        page.write(PAGE_SCRIPT);
    }
}

}  // namespace

void write_page(OutputStream& page, const PageContents& contents, const FrameData& frames) {
    std::string_view rest = PAGE_DOCUMENT;
    for (std::size_t begin = rest.find("{{"); begin != std::string_view::npos; begin = rest.find("{{")) {
        const std::size_t end = rest.find("}}");
        page.write(rest.substr(0, begin));
        write_part(page, rest.substr(begin + 2, end - begin - 2), contents, frames);
        rest.remove_prefix(end + 2);
    }
    page.write(rest);
}
