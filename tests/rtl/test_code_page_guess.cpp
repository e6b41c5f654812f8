// Guessing the code page of 8-bit text: one table of sentences per code
// page, as a form's captions hold them.

#include "rtl/CodePage.h"
#include "rtl/CodePageGuess.h"
#include "rtl/FormText.h"

#include <gtest/gtest.h>

namespace {

// A form of one caption in the code page, in text and in binary.
std::string TextForm(const std::string& bytes)
{
    return "object F: TF\r\n  Caption = '" + bytes + "'\r\nend\r\n";
}

TEST(CodePageGuess, NamesTheCodePageOfEachLanguage)
{
    const struct {
        int codePage;
        const char* utf8;
    } cases[] = {
        {1252, "Paramètres avancés de l’éditeur"},
        {1252, "Schließen und Änderungen übernehmen"},
        {1252, "Configuração não disponível"},
        {1252, "Año de publicación"},
        {1250, "Zażółć gęślą jaźń"},
        {1250, "Příliš žluťoučký kůň úpěl ďábelské ódy"},
        {1251, "Сохранить изменения перед закрытием?"},
        {1251, "Відкрити файл"},
        {1251, "ОТМЕНА"},
        {1253, "Αποθήκευση αλλαγών πριν το κλείσιμο;"},
        {1253, "Ρυθμίσεις εκτύπωσης"},
        {936, "保存对文件的更改吗？"},
        {936, "打开数据库连接"},
        {950, "儲存對檔案的變更"},
        {950, "開啟資料庫連線"},
        {932, "ファイルを保存しますか？"},
        {932, "設定を変更しました"},
        {949, "파일을 저장하시겠습니까?"},
        {949, "데이터베이스 연결 설정"},
    };
    for (const auto& c : cases) {
        std::string bytes;
        ASSERT_TRUE(Utf8ToCodePage(c.utf8, c.codePage, bytes)) << c.utf8;
        const std::string text = TextForm(bytes);
        EXPECT_EQ(GuessCodePage(FormHighStrings(text)).CodePage, c.codePage) << c.utf8 << " in text";
        // The bytes of a binary form's strings, as they are.
        const std::string binary = FormTextToBinary(text, {});
        EXPECT_EQ(GuessCodePage(FormHighStrings(binary)).CodePage, c.codePage) << c.utf8 << " in binary";
    }
}

TEST(CodePageGuess, SaysWhatItRestsOn)
{
    EXPECT_EQ(GuessCodePage({}).Bytes, 0u);
    const TCodePageGuess ascii = GuessCodePage(FormHighStrings(TextForm("plain")));
    EXPECT_EQ(ascii.CodePage, 1252);
    EXPECT_EQ(ascii.Bytes, 0u);
    // Only the 8-bit strings of a binary form count, not its pictures.
    const std::string binary = FormTextToBinary(
        "object F: TF\r\n  Data = {FFFEFDFC}\r\n  Caption = 'caf\xE9'\r\nend\r\n", {});
    const std::vector<std::string_view> strings = FormHighStrings(binary);
    ASSERT_EQ(strings.size(), 1u);
    EXPECT_EQ(strings[0], "caf\xE9");
    EXPECT_EQ(GuessCodePage(strings).Bytes, 1u);
}

TEST(CodePageGuess, StrictDecodingMarksWhatDoesNotDecode)
{
    // 0xAA is not a character of the Greek code page; a lead byte of GBK
    // at the end has no trail.
    EXPECT_EQ(CodePageToUtf32("a\xAA" "b", 1253), U"a\uFFFDb");
    EXPECT_EQ(CodePageToUtf32("\xB1\xA3\xB1", 936), U"\u4FDD\uFFFD");
}

} // namespace
