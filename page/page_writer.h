#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "io/output_stream.h"
#include "page/frame_data.h"

// What a page is made of.
struct PageContents {
    std::string title;               // the trace's name
    std::string facts;               // a sentence on what the trace holds
    std::vector<std::string> calls;  // rows of call_row()
};

// Writes the page: the document page.html with what it names between double braces, its style and script within.
void write_page(OutputStream& page, const PageContents& contents, const FrameData& frames);
