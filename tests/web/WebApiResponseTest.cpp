#include <gtest/gtest.h>
#include <limits>

#include "foundation/system/Log.h"
#include "support/web/HttpParameter.h"
#include "support/web/WebApiResponse.h"

namespace {

using Response = orv::QuelmWebApiResponse;

TEST(HttpParameter, EncodesEveryByteButLettersAndDigits) {
    EXPECT_EQ(orv::EncodeHttpParameter("a b/c.de"), "a%20b%2Fc%2Ede");
    EXPECT_EQ(orv::EncodeHttpParameter("é"), "%C3%A9");
    EXPECT_EQ(orv::EncodeHttpParameter(std::string("Z9\0~", 4)), "Z9%00%7E");
    EXPECT_EQ(orv::EncodeHttpParameter(""), "");
}

TEST(HttpParameter, AddressesNameTheAccountOnce) {
    EXPECT_EQ(orv::WithSourceAccount("https://a/page", "1 7"), "https://a/page?sourcercid=1%207");
    EXPECT_EQ(orv::WithSourceAccount("page?x=1", "17"), "page?x=1&sourcercid=17");
    for (const char* carries : {"page?rcid=5", "page?sourceRCID=5"})
        EXPECT_EQ(orv::WithSourceAccount(carries, "17"), carries);
    EXPECT_EQ(orv::BaseUrlOf("api.example.com"), "https://api.example.com");
    EXPECT_EQ(orv::BaseUrlOf("http://localhost:8080"), "http://localhost:8080");
    for (const char* noScheme : {"host:8080", "1http://x", "://x", ""})
        EXPECT_EQ(orv::BaseUrlOf(noScheme), std::string("https://") + noScheme);
}

TEST(WebApiResponse, GivesTheParametersByType) {
    const auto response = Response::responseWithData(
        "<quelmApiResponse><responseCode> 37</responseCode><n>7x</n><n>8</n><big>99999999999</big>"
        "<yes>y</yes><no>YES</no><text>a&amp;<![CDATA[b]]></text></quelmApiResponse>");
    ASSERT_TRUE(response);
    EXPECT_EQ(response->responseCode(), 37);
    EXPECT_EQ(response->returnCode(), "DEFAULT_UNKNOWN_VALUE");
    EXPECT_EQ(response->intParameterValue("n", 1), 7);
    EXPECT_EQ(response->parameter("n").size(), 2U);
    EXPECT_EQ(response->longLongParameterValue("big", 1), 99'999'999'999);
    EXPECT_EQ(response->intParameterValue("big", 1), std::numeric_limits<std::int32_t>::max());
    EXPECT_TRUE(response->boolParameterValue("yes", false));
    EXPECT_FALSE(response->boolParameterValue("no", true));
    EXPECT_TRUE(response->boolParameterValue("none", true));
    EXPECT_EQ(response->stringParameterValue("text", ""), "a&b");
    EXPECT_EQ(response->stringParameterValue("none", "-"), "-");
    EXPECT_EQ(response->intParameterValue("none", 5), 5);
}

TEST(WebApiResponse, IsNoneWithoutADocumentAndACode) {
    std::vector<std::string> log;
    quelm::SetLogSink([&log](std::string_view line) { log.emplace_back(line); });
    for (const std::string data :
         {"", "garbage", "<quelmApiResponse>", "<quelmApiResponse/>",
          "<quelmApiResponse><responseCode>-1</responseCode></quelmApiResponse>",
          "<other><responseCode>0</responseCode></other>"}) {
        EXPECT_EQ(Response::responseWithData(data), nullptr) << data;
    }
    EXPECT_EQ(Response::responseWithData(std::string(1 << 20U, 'x')), nullptr);
    quelm::SetLogSink(nullptr);
    EXPECT_LT(log.back().size(), 2'000U);
}

TEST(WebApiResponse, CodesHaveMessages) {
    EXPECT_EQ(Response::errorMessageForCode(0, "default"), "");
    for (const int code : {2, 7, 8})
        EXPECT_EQ(Response::errorMessageForCode(code, "default"), "Invalid credentials.");
    EXPECT_EQ(Response::errorMessageForCode(116, "default"),
              "Account is password locked. Contact your administrator.");
    for (const int code : {-1, 15, 9'999})
        EXPECT_EQ(Response::errorMessageForCode(code, "default"), "default");
}

}  // namespace
