#include "foundation/xml/XmlStream.h"

#include <cstddef>
#include <expat.h>
#include <fmt/format.h>
#include <memory>
#include <type_traits>

namespace quelm {

namespace {

constexpr std::size_t mostBytes = std::size_t{64} << 20U;
constexpr int mostLevels = 64;

struct Reading {
    XML_Parser parser;
    XmlReceiver& receiver;
    int level = 0;
    const char* refusal = nullptr;

    void refuse(const char* reason) {
        refusal = reason;
        XML_StopParser(parser, XML_FALSE);
    }
};

Reading& readingOf(void* data) {
    return *static_cast<Reading*>(data);
}

void startElement(void* data, const char* name, const char**) {
    Reading& reading = readingOf(data);
    if (++reading.level > mostLevels) return reading.refuse("it is nested too deep");
    reading.receiver.startElement(name);
}

void endElement(void* data, const char*) {
    Reading& reading = readingOf(data);
    if (reading.refusal != nullptr) return;
    --reading.level;
    reading.receiver.endElement();
}

void addText(void* data, const char* text, int length) {
    readingOf(data).receiver.addText({text, static_cast<std::size_t>(length)});
}

void startDoctype(void* data, const char*, const char*, const char*, int) {
    readingOf(data).refuse("it has a document type");
}

std::string faultOf(const Reading& reading) {
    const auto line = XML_GetCurrentLineNumber(reading.parser);
    const char* const reason = reading.refusal != nullptr
                                   ? reading.refusal
                                   : XML_ErrorString(XML_GetErrorCode(reading.parser));
    return fmt::format("{} in line {}", reason, line);
}

}  // namespace

std::string StreamXml(std::string_view text, XmlReceiver& receiver) {
    if (text.size() > mostBytes) return "it is too large";
    using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)>;
    const Parser parser(XML_ParserCreate(nullptr), XML_ParserFree);
    if (!parser) return "there is no memory for it";
    Reading reading{parser.get(), receiver};
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(parser.get(), addText);
    XML_SetStartDoctypeDeclHandler(parser.get(), startDoctype);
    const auto status =
        XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
    return status == XML_STATUS_OK ? "" : faultOf(reading);
}

}  // namespace quelm
