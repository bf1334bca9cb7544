#include "ifc/io/tokenizer.h"

#include <gtest/gtest.h>

#include <new>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/memory_stream.h"
#include "tests/support/reports.h"
#include "tests/support/temp_folder.h"
#include "tests/support/token_text.h"

namespace {

using namespace std::string_view_literals;
using std::string_literals::operator""s;

constexpr std::size_t kBufferSizes[] = {1, 2, 3, 7, 4096};

struct ScanCase {
    std::string_view step;
    std::string_view tokens;
};

std::string tokensOf(std::string_view step, std::size_t bufferBytes) {
    Tokenizer tokenizer(std::make_unique<MemoryInputStream>(step, bufferBytes), {});
    return remainingTokens(tokenizer);
}

void checkTokens(std::span<const ScanCase> cases) {
    for (const auto& [step, tokens] : cases) {
        for (const std::size_t bufferBytes : kBufferSizes)
            EXPECT_EQ(tokensOf(step, bufferBytes), tokens) << step << "\nbuffer " << bufferBytes;
    }
}

TEST(Tokenizer, ReadsAWholeStatement) {
    constexpr ScanCase kCases[] = {
        {"#12=IFCWALL('2O2Fr$t4X7Zf8NOew3FLOH',$,*,.T.,(#1,#2),-5,3.5E-2);",
         "Identifier:12 Equal Name:IFCWALL OpenBracket String:2O2Fr$t4X7Zf8NOew3FLOH Empty Derived "
         "Enumeration:T OpenBracket Identifier:1 Identifier:2 CloseBracket Integer:-5 Real:0.035 "
         "CloseBracket Semicolon"},
        {"ISO-10303-21;\nDATA;\nENDSEC;\nEND-ISO-10303-21;\n",
         "Iso:ISO-10303-21 Semicolon Data Semicolon Endsec Semicolon EndIso:END-ISO-10303-21 "
         "Semicolon"},
        {"", ""},
        {" \t\r\n_\v\f", ""},
    };
    checkTokens(kCases);
}

struct ElementCase {
    std::string_view element;
    bool plainReal;
    bool plainName;
};

/// What the quick way takes, and what it leaves, gives the tokens that the usual way gives.
TEST(TokenizerElement, IsTakenQuicklyOnlyWhenNothingStandsAroundIt) {
    constexpr ElementCase kCases[] = {
        {"1.", true, false},           {"-0.125", true, false},
        {".5", false, false},          {"-.", false, false},
        {".", false, false},           {"1", false, false},
        {"1.E3", false, false},        {" 1.", false, false},
        {"1. ", false, false},         {"1./*,*/", false, false},
        {"1.5 2", false, false},       {"9007199254740993.", false, false},
        {"$", false, false},           {"", false, false},
        {"#17", false, true},          {"#999999999", false, true},
        {"#1000000000", false, false}, {"#", false, false},
        {"#1 ", false, false},         {"#1/**/", false, false},
        {"#-1", false, false},         {"#1.", false, false},
    };
    for (const ElementCase& each : kCases) {
        for (const std::string_view format : {"({},#2,3.)", "(3.,{},#2)", "(#2,{})"}) {
            std::string step(format);
            step.replace(step.find("{}"), 2, each.element);
            const std::string usual = tokensOf(step, 4096);
            for (const std::size_t bufferBytes : kBufferSizes) {
                Tokenizer tokenizer(std::make_unique<MemoryInputStream>(step, bufferBytes), {});
                std::string tokens = textOf(*tokenizer.nextToken());
                double real = 0;
                std::int32_t name = 0;
                while (true) {
                    if (tokenizer.takePlainReal(real))
                        tokens += " " + textOf(RealDataTypeToken(real, false, false));
                    else if (tokenizer.takePlainName(name))
                        tokens += " " + textOf(IdentifierToken(name));
                    else if (const Token* token = tokenizer.nextToken();
                             token->kind != TokenKind::EndOfFile)
                        tokens += " " + textOf(*token);
                    else
                        break;
                }
                EXPECT_EQ(tokens, usual) << step << "\nbuffer " << bufferBytes;
            }
        }
        const std::string step = "(3.," + std::string(each.element) + ",#2)";
        Tokenizer tokenizer(std::make_unique<MemoryInputStream>(step, 4096), {});
        tokenizer.nextToken();
        tokenizer.nextToken();
        double real = 0;
        std::int32_t name = 0;
        EXPECT_EQ(tokenizer.takePlainReal(real), each.plainReal) << step;
        EXPECT_EQ(!each.plainReal && tokenizer.takePlainName(name), each.plainName) << step;
    }
}

TEST(TokenizerKeyword, IsLettersAndDigitsWithoutUnderscores) {
    constexpr ScanCase kCases[] = {
        {"IFCWALL", "Name:IFCWALL"},
        {"FILE_NAME(", "Name:FILENAME OpenBracket"},
        {"_A", "Name:A"},
        {"A__B_ C", "Name:AB Name:C"},
        {"IfcWall2x3 (", "Name:IfcWall2x3 OpenBracket"},
        {"inf,INF", "Real:inf Name:INF"},
        {"infinite", "Name:infinite"},
        {"Data data DATAX", "Name:Data Name:data Name:DATAX"},
        {"ISO8859", "Name:ISO8859"},
        {"IS IFC I", "Name:IS Name:IFC Name:I"},
        {"ENDING;", "Name:ENDING Semicolon"},
        {"END", "EndIso:END"},
        {"ISO 1 (2)\n'x' ;", "Iso:ISO 1 (2)<000A>'x'  Semicolon"},
        {"A\xE4", "Name:A UnknownSign"},
    };
    checkTokens(kCases);
}

TEST(TokenizerNumber, IsIntegerOrReal) {
    constexpr ScanCase kCases[] = {
        {"0,-0,12,-12,007", "Integer:0 Integer:0 Integer:12 Integer:-12 Integer:7"},
        {"-A", "Integer:0 Name:A"},
        {"--5", "Integer:0 Integer:-5"},
        {"-,", "Integer:0"},
        {"2147483647,-2147483648", "Integer:2147483647 Integer:-2147483648"},
        {"2147483648,10000000000", "Integer:-2147483648/2147483648 Integer:1410065408/10000000000"},
        {"9223372036854775807,-9223372036854775808",
         "Integer:-1/9223372036854775807 Integer:0/-9223372036854775808"},
        {"9223372036854775808,-9223372036854775809",
         "Integer:-1/9223372036854775807! Integer:0/-9223372036854775808!"},
        {"1.,-1.,0.5,-.5)", "Real:1 Real:-1 Real:0.5 Real:-0.5 CloseBracket"},
        {"1.E-05,1.e5,1.E+3,2.5E0)", "Real:1e-05 Real:1e+05 Real:1000 Real:2.5 CloseBracket"},
        {"1E5", "Integer:1 Name:E5"},
        {"0.1,1.7976931348623157E308,5.E-324", "Real:0.1 Real:1.7976931348623157e+308 Real:5e-324"},
        {"9007199254740993.,123456789012345678901234567890.",
         "Real:9007199254740992 Real:1.2345678901234568e+29"},
        // Half-way between two doubles but for the last digit.
        {"1.00000000000000011102230246251565404236316680908203124,", "Real:1"},
        {"1.00000000000000011102230246251565404236316680908203126,", "Real:1.0000000000000002"},
        {"1.E309,-1.E309,1.E-400,-1.E-400",
         "Real:1.7976931348623157e+308! Real:-1.7976931348623157e+308! Real:0 Real:-0"},
        {"1.5 ,2.5\n)", "Real:1.5 Real:2.5 CloseBracket"},
        {"1.5abc#7;,2.E,3.x)", "Real:1.5? Real:2? Real:3? CloseBracket"},
        {"-1.#INF,-.,1.#IND)", "Real:-1? Real:-0? Real:1? CloseBracket"},
        {"1.5 /* , ) */,2.5/**/E/x,3.5/*)", "Real:1.5 Real:2.5? Real:3.5"},
        {"1.", "Real:1"},
        {"1.2\xFF,3", "Real:1.2"},
        {"12\xFF,3", "Integer:12"},
    };
    checkTokens(kCases);
}

TEST(TokenizerNumber, KeepsItsSizeWithManyDigits) {
    const std::string zeros(400, '0');
    for (const auto& [step, tokens] : std::initializer_list<std::pair<std::string, std::string>>{
             {"0." + zeros + "1,", "Real:0"},
             {"-0." + zeros + "1E200,", "Real:-1e-201"},
             {"1" + zeros + ".,", "Real:1.7976931348623157e+308!"},
             {"1" + zeros + ".E-400,", "Real:1"},
             {"1" + zeros + ".E-40,", "Real:1.7976931348623157e+308!"},
             {zeros + "7,", "Integer:7"},
             {"0." + zeros + "25E401,", "Real:2.5"},
             {"1" + zeros + ",", "Integer:-1/9223372036854775807!"}}) {
        for (const std::size_t bufferBytes : kBufferSizes)
            EXPECT_EQ(tokensOf(step, bufferBytes), tokens) << step << "\nbuffer " << bufferBytes;
    }
}

TEST(TokenizerNumber, TakesTheExponentBehindAnInteger) {
    struct {
        std::string_view step;
        std::string_view number;
        std::string_view rest;
    } constexpr kCases[] = {
        {"1E-05,7", "Real:1e-05", "Integer:7"},
        {"-12e3)", "Real:-12000", "CloseBracket"},
        {"5E+2,", "Real:500", ""},
        {"1E400,", "Real:1.7976931348623157e+308!", ""},
        {"1E-400,", "Real:0", ""},
        {"0E99999999999999999999999999999999999999999999999999999,", "Real:0", ""},
        {"7,E5", "none", "Name:E5"},
        {"7 E5", "none", "Name:E5"},
    };
    for (const auto& [step, number, rest] : kCases) {
        for (const std::size_t bufferBytes : kBufferSizes) {
            Tokenizer tokenizer(std::make_unique<MemoryInputStream>(step, bufferBytes), {});
            const Token* token = tokenizer.nextToken();
            ASSERT_EQ(token->kind, TokenKind::Integer) << step;
            token = tokenizer.takeExponent(*static_cast<const IntegerDataTypeToken*>(token));
            EXPECT_EQ(token ? textOf(*token) : "none", number) << step;
            EXPECT_EQ(remainingTokens(tokenizer), rest) << step;
        }
    }
}

TEST(TokenizerInstanceName, IsTheDigitsBehindTheSign) {
    constexpr ScanCase kCases[] = {
        {"#1#22 #333", "Identifier:1 Identifier:22 Identifier:333"},
        {"#,#A", "Identifier:0 Identifier:0 Name:A"},
        {"#-5", "Identifier:0 Integer:-5"},
        {"#2147483647", "Identifier:2147483647"},
        {"#2147483648", "Identifier:-2147483648/2147483648!"},
        {"#92147483647", "Identifier:1953170431/92147483647!"},
        {"#123456789012345678901234567890,1", "Identifier:-1/9223372036854775807! Integer:1"},
        {"#000000000000000000000000000042", "Identifier:42"},
    };
    checkTokens(kCases);
}

TEST(TokenizerString, IsDecoded) {
    constexpr ScanCase kCases[] = {
        {"''", "String:"},
        {"'It''s'", "String:It's"},
        {"'''' ''''''", "String:' String:''"},
        {"'a\\\\b'", "String:a\\b"},
        {"'a\\qb'", "String:a\\qb"},
        {"'\\N\\'", "String:\\N\\"},
        {"';,(#1/*' ;", "String:;,(#1/* Semicolon"},
        {"'a\r\nb\tc'", "String:a<000D><000A>b<0009>c"},
        {"'\\X2\\00E4\\X0\\'", "String:<00E4>"},
        {"'\\X2\\00e400FC\\X0\\x'", "String:<00E4><00FC>x"},
        {"'\\X2\\\\X0\\'", "String:"},
        {"'\\X2\\D83DDE00\\X0\\'", "String:<D83D><DE00>"},
        {"'\\X4\\0001F600\\X0\\'", "String:<F600><0001>"},
        {"'\\X4\\000000E40001F600\\X0\\'", "String:<00E4><F600><0001>"},
        {"'\\X\\E4\\X\\fc'", "String:<00E4><00FC>"},
        {"'\\X\\80'", "String:<20AC>"},  // of the default code page
        {"'\\PA\\\\S\\d\\S\\''", "String:<00E4><00A7>"},
        {"'\\PE\\\\S\\P'", "String:<0430>"},                         // ISO 8859-5
        {"'\\PI\\\\X\\FD'", "String:<0131>"},                        // ISO 8859-9
        {"'\\PE\\\\S\\P' '\\S\\P'", "String:<0430> String:<00D0>"},  // of one string only
        {"'\\Xab'", "String:ab"},
        {"'\\S\\d\\X2\\03A9\\X0\\\\X\\E4'", "String:<00E4><03A9><00E4>"},
        {"'\xE4\x80\xFE'", "String:<FFE4><FF80><FFFE>"},
        {"'\xC3\xA4'", "String:<FFC3><FFA4>"},
        {"'a\xFF''b'", "String:a String: Name:b String:"},
        {"'a'b'c'", "String:a Name:b String:c"},
    };
    checkTokens(kCases);
    checkTokens(std::array{ScanCase{"'a\0b'"sv, "String:a<0000>b"}});
}

TEST(TokenizerString, MayBeLong) {
    const std::string plain(100'000, 'x');
    for (const std::size_t bufferBytes : kBufferSizes) {
        EXPECT_EQ(tokensOf("'" + plain + "'", bufferBytes), "String:" + plain);
        EXPECT_EQ(tokensOf("'" + plain + "''" + plain + "'", bufferBytes),
                  "String:" + plain + "'" + plain);
    }
}

TEST(TokenizerEnumeration, IsTheTextBetweenItsDots) {
    constexpr ScanCase kCases[] = {
        {".ELEMENT.;", "Enumeration:ELEMENT Semicolon"},
        {"..", "Enumeration:"},
        {".\xE4.", "Enumeration:<FFE4>"},
        {".a b_\n'.5", "Enumeration:a b_<000A>' Integer:5"},
        {".LENGTHqUNIT.,.T.", "Enumeration:LENGTHqUNIT Enumeration:T"},
    };
    checkTokens(kCases);
}

TEST(TokenizerBinary, IsTheTextBetweenDoubleQuotes) {
    constexpr ScanCase kCases[] = {
        {"\"0ABC\",\"\"", "Binary:0ABC Binary:"},
        {"(\"3F\",'\"')", "OpenBracket Binary:3F String:\" CloseBracket"},
        {"\"0A", "Binary:0A"},
    };
    checkTokens(kCases);
}

TEST(TokenizerSign, IsOneTokenOrNone) {
    constexpr ScanCase kCases[] = {
        {"=(),;$*", "Equal OpenBracket CloseBracket Semicolon Empty Derived"},
        {",,,", ""},
        {"+5", "UnknownSign Integer:5"},
        {"!&{\x01\x80", "UnknownSign UnknownSign UnknownSign UnknownSign UnknownSign"},
        {"/x;", "UnknownSign Semicolon"},
        {"//", "UnknownSign"},
        {"/* no token, no ' quote */;", "Semicolon"},
        {"/**/;/***/;/*/*/;/****/", "Semicolon Semicolon Semicolon"},
        {"A/*\xFF*/B", "Name:A Name:B"},
        {"a,\xFF"
         "b",
         "Name:a"},
        {"\xFF", ""},
        {"/\xFF", ""},
    };
    checkTokens(kCases);
    checkTokens(std::array{ScanCase{"a\0b"sv, "Name:a UnknownSign Name:b"}});
}

TEST(Tokenizer, EndsWithAnInputThatIsCut) {
    constexpr ScanCase kCases[] = {
        {"/* open", ""},
        {"/* open *", ""},
        {"/", ""},
        {".CUT", "Enumeration:CUT"},
        {".CUT\xFF.X.", "Enumeration:CUT"},
        {"1.5E", "Real:1.5?"},
        {"-", "Integer:0"},
        {"#", "Identifier:0"},
        {"ISO-10303", "Iso:ISO-10303"},
        {"END-ISO", "EndIso:END-ISO"},
        {"'open", "String:open"},
        {"'", "String:"},
        {"'a'''", "String:a'"},
        {"'a\\", "String:a\\"},
        {"'a\\S\\", "String:a"},
        {"'a\\X", "String:a"},
        {"'a\\X2\\00E4", "String:a<00E4>"},
        {"'a\\X2\\00E4\\X0", "String:a<00E4>"},
        {"HEADER", "Header:[],,,,[],[],,,,"},
        {"HEADER;FILE_DESCRIPTION(('a','b", "Header:['a''b'],,,,[],[],,,,"},
        {"\xEF\xBB\xBF", ""},
    };
    checkTokens(kCases);
}

TEST(Tokenizer, SkipsAByteOrderMarkAtTheBegin) {
    constexpr ScanCase kCases[] = {
        {"\xEF\xBB\xBFISO-10303-21;", "Iso:ISO-10303-21 Semicolon"},
        {"A\xEF\xBB\xBF", "Name:A UnknownSign UnknownSign UnknownSign"},
    };
    checkTokens(kCases);
}

constexpr std::string_view kHeader =
    "HEADER;\n"
    "FILE_DESCRIPTION (\n\t('ViewDefinition [X]','It''s'), '2;1');\n"
    "FILE_NAME ('n','2024-01-02T03:04:05',('A','B'),('O'),'pre','sys','auth');\n"
    "FILE_SCHEMA (('IFC4','IFC2X3'));\n"
    "ENDSEC;\nDATA;\n";

TEST(TokenizerHeader, IsOneTokenWithTheFieldsInTheirOrder) {
    constexpr ScanCase kCases[] = {
        {kHeader,
         "Header:['ViewDefinition [X]''It's'],2;1,n,2024-01-02T03:04:05,['A''B'],['O'],pre,sys,"
         "auth,IFC4 Semicolon Data Semicolon"},
        {"HEADER;FILE_DESCRIPTION((),'');FILE_NAME('','',(),(),'','',$);"
         "FILE_SCHEMA(('IFC2X3'));ENDSEC;",
         "Header:[],,,,[],[],,,,IFC2X3 Semicolon"},
        {"HEADER;/* c */FILE_DESCRIPTION(($),$);FILE_NAME($,/*t*/$,('a',$),($),$,5,'\\X\\E4');"
         "FILE_SCHEMA((/*s*/'IFC4X3'));ENDSEC;X",
         "Header:[''],,,,['a'''],[''],,,<00E4>,IFC4X3 Semicolon Name:X"},
        // One field too few: the closing bracket stands for it.
        {"HEADER;FILE_DESCRIPTION(('d'));FILE_NAME('n','t',('a'),('o'),'p','s');"
         "FILE_SCHEMA(('IFC4'));ENDSEC;X",
         "Header:['d'],,n,t,['a'],['o'],p,s,,IFC4 Semicolon Name:X"},
        // A fourth entity is not expected; reading goes on behind its name.
        {"HEADER;FILE_DESCRIPTION(('d'),'2;1');FILE_NAME('n','t',('a'),('o'),'p','s','z');"
         "FILE_SCHEMA(('IFC4'));FILE_INFO('i');ENDSEC;",
         "Header:['d'],2;1,n,t,['a'],['o'],p,s,z,IFC4 OpenBracket String:i CloseBracket Semicolon "
         "Endsec Semicolon"},
    };
    checkTokens(kCases);
}

TEST(TokenizerHeader, EndsWhereverItIsCut) {
    for (std::size_t length = 0; length <= kHeader.size(); ++length) {
        const std::string tokens = tokensOf(kHeader.substr(0, length), 7);
        EXPECT_EQ(tokens.starts_with("Header:["), length >= 6) << length;
        EXPECT_EQ(tokens.find("without end"), std::string::npos) << length;
    }
}

TEST(TokenizerHeader, IsAKeywordInsideAnInstance) {
    constexpr ScanCase kCases[] = {
        {"#1=A(HEADER);",
         "Identifier:1 Equal Name:A OpenBracket Name:HEADER CloseBracket Semicolon"}};
    checkTokens(kCases);
}

TEST(TokenizerHeader, IsNotReadInsideAnother) {
    std::string step;
    for (int count = 0; count < 200'000; ++count)
        step += "HEADER;";
    EXPECT_EQ(tokensOf(step, 4096), "Header:[],,,,[],[],,,,");
}

TEST(Tokenizer, CountsLinesBetweenTokensOnly) {
    struct {
        std::string_view step;
        int lines;
    } constexpr kCases[] = {
        {"A", 1},        {"A\nB", 2},   {"A\r\nB\r\n\r\nC", 4}, {"A\rB\r\rC", 4},
        {"A\n\rB", 3},   {"\n\n\n", 4}, {"/*\n\n*/A", 1},       {"'a\nb'\n", 2},
        {"ISO\n\n;", 1}, {".A\n.", 1},  {"A\r/**/\nB", 3},
    };
    for (const auto& [step, lines] : kCases) {
        for (const std::size_t bufferBytes : kBufferSizes) {
            Tokenizer tokenizer(std::make_unique<MemoryInputStream>(step, bufferBytes), {});
            remainingTokens(tokenizer);
            EXPECT_EQ(tokenizer.lineNumber(), lines) << step << "\nbuffer " << bufferBytes;
        }
    }
}

TEST(Tokenizer, CountsTheParametersOfAnInstance) {
    Tokenizer tokenizer(std::make_unique<MemoryInputStream>("#1=A($,'x',(2,3.,),#4);#2", 4096), {});
    std::string indices;
    for (const Token* token = tokenizer.nextToken(); token->kind != TokenKind::EndOfFile;
         token = tokenizer.nextToken())
        indices += std::to_string(tokenizer.parameterIndex());
    //                 #1 = A ( $ 'x' ( 2 3. ) #4 ) ; #2
    EXPECT_EQ(indices, "11111233457701");
}

TEST(Tokenizer, KeepsTheTextOfTheStatement) {
    for (const std::size_t bufferBytes : kBufferSizes) {
        auto stream = std::make_unique<MemoryInputStream>(
            " #1=A(';',1.;,2);\n#2 = B/*;*/( 'x' ) ;\n#3", bufferBytes);
        const FileStream::InputStream& input = *stream;
        Tokenizer tokenizer(std::move(stream), {});
        std::string statements;
        for (const Token* token = tokenizer.nextToken(); token->kind != TokenKind::EndOfFile;
             token = tokenizer.nextToken()) {
            if (token->kind == TokenKind::Semicolon)
                statements += "[" + input.statementText() + "]";
        }
        EXPECT_EQ(statements, "[ #1=A(';',1.;,2);][\n#2 = B/*;*/( 'x' ) ;]") << bufferBytes;
    }
}

TEST(Tokenizer, ReturnsThePendingTokenFirstAndKeepsItAlive) {
    Tokenizer tokenizer(std::make_unique<MemoryInputStream>("A B", 4096), {});
    const Token* first = tokenizer.nextToken();
    tokenizer.setPending(first);
    tokenizer.clearTokens();
    EXPECT_EQ(remainingTokens(tokenizer), "Name:A Name:B");
}

TEST(Tokenizer, ReadsStringParameters) {
    Tokenizer tokenizer(std::make_unique<MemoryInputStream>("'a',$,5,)'b'", 4096), {});
    std::u16string read;
    for (int count = 0; count < 6; ++count)
        read += u"[" + tokenizer.readStringParameter() + u"]";
    EXPECT_EQ(read, u"[a][][][][b][]");
}

TEST(Tokenizer, EndsForGoodWhenReadingFails) {
    const std::pair<std::exception_ptr, std::string> faults[] = {
        {std::make_exception_ptr(std::bad_alloc()),
         "|Not enough memory space. Try to run 64-bit Arvenhold"},
        {std::make_exception_ptr(std::runtime_error("disk gone")), "|disk gone"}};
    for (const auto& [fault, expected] : faults) {
        ErrorLog log;
        Tokenizer tokenizer(
            std::make_unique<MemoryInputStream>("A;'cut", 3, ErrorCallback(), fault),
            log.callback());
        EXPECT_EQ(remainingTokens(tokenizer), "Name:A Semicolon");
        EXPECT_TRUE(tokenizer.failed());
        EXPECT_EQ(tokenizer.nextToken()->kind, TokenKind::EndOfFile);
        EXPECT_EQ(log.entries, std::vector{expected});
    }
}

TEST(Tokenizer, ChoosesTheStreamByTheExtension) {
    const TempFolder folder;
    ErrorLog log;
    folder.write(u"a.IFC", "A;");
    Tokenizer plain(folder / u"a.IFC", 4096, log.callback());
    EXPECT_EQ(remainingTokens(plain), "Name:A Semicolon");
    EXPECT_TRUE(log.entries.empty());

    Tokenizer unknown(u"/x/a.stp", 4096, log.callback());
    EXPECT_EQ(unknown.stream(), nullptr);
    EXPECT_EQ(remainingTokens(unknown), "");
    EXPECT_EQ(log.entries, std::vector{"could_not_open_file_extension| /x/a.stp"s});

    Tokenizer missing(folder / u"missing.ifc", 4096, log.callback());
    EXPECT_EQ(remainingTokens(missing), "");
}

}  // namespace
