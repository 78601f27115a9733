// Expressions of entry fields, each read and evaluated anew. Names: operation/input/who.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "orv/orv.h"
#if defined(ORV_PEER_FPARSER)
#include <fparser.hh>
#endif
#if defined(ORV_PEER_MUPARSER)
#include <muParser.h>
#endif

namespace {

struct Expression {
    const char* comma;
    const char* point;  // for peers that know no decimal comma
};

constexpr Expression kExpressions[] = {{"12", "12"},
                                       {"1,25", "1.25"},
                                       {"3,5*(2+4)/7", "3.5*(2+4)/7"},
                                       {"2*PI*0,05", "2*pi*0.05"},
                                       {"(120+35)*2", "(120+35)*2"},
                                       {"0,025*1000", "0.025*1000"},
                                       {"SIN(0,5)*2", "sin(0.5)*2"},
                                       {"100/3", "100/3"},
                                       {"2^3+1", "2^3+1"},
                                       {"1,5*2,5*3", "1.5*2.5*3"},
                                       {"-12,5+3", "-12.5+3"},
                                       {"(2,40+0,36)*(3,10+0,36)", "(2.40+0.36)*(3.10+0.36)"},
                                       {"4*PI*(0,3/2)^2", "4*pi*(0.3/2)^2"},
                                       {"7,0", "7.0"},
                                       {"1200*0,86/3600", "1200*0.86/3600"},
                                       {"COS(PI/3)+TAN(0,1)", "cos(pi/3)+tan(0.1)"}};

// With one name that stands for a text (here) or a constant (the peer).
constexpr Expression kWithMacro[] = {
    {"H*2,5", "H*2.5"}, {"(H+0,36)/2", "(H+0.36)/2"}, {"2*PI*H", "2*pi*H"}, {"H-1", "H-1"}};

void items(benchmark::State& state, std::size_t count) {
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

template <std::size_t kCount>
void evaluateOrv(benchmark::State& state, const Expression (&expressions)[kCount]) {
    CNumString::DefineMacro(L"H", L"2,75");
    std::vector<CNumString> texts;
    for (const Expression& expression : expressions) {
        texts.emplace_back();
        texts.back() = CString(expression.comma);
    }
    for (auto _ : state) {
        for (CNumString& text : texts)
            benchmark::DoNotOptimize(text.Value());
    }
    if (CNumString::AnzahlFehler() != 0) state.SkipWithError("an expression failed");
    CNumString::deleteContents();
    items(state, kCount);
}

template <std::size_t kCount>
void evaluateView(benchmark::State& state, const Expression (&expressions)[kCount]) {
    std::vector<CString> texts;
    for (const Expression& expression : expressions)
        texts.emplace_back(expression.comma);
    for (auto _ : state) {
        for (const CString& text : texts)
            benchmark::DoNotOptimize(
                orv::evaluate({text.GetString(), static_cast<std::size_t>(text.GetLength())}).value);
    }
    items(state, kCount);
}

#if defined(ORV_PEER_FPARSER)
template <std::size_t kCount>
void evaluateFparser(benchmark::State& state, const Expression (&expressions)[kCount]) {
    FunctionParser parser;
    parser.AddConstant("pi", M_PI);
    parser.AddConstant("H", 2.75);
    std::vector<std::string> texts;
    for (const Expression& expression : expressions)
        texts.emplace_back(expression.point);
    for (auto _ : state) {
        for (const std::string& text : texts) {
            if (parser.Parse(text, "") >= 0) state.SkipWithError("an expression failed");
            benchmark::DoNotOptimize(parser.Eval(nullptr));
        }
    }
    items(state, kCount);
}
#endif

#if defined(ORV_PEER_MUPARSER)
template <std::size_t kCount>
void evaluateMuParser(benchmark::State& state, const Expression (&expressions)[kCount]) {
    mu::Parser parser;
    parser.DefineConst("pi", M_PI);
    parser.DefineConst("H", 2.75);
    std::vector<std::string> texts;
    for (const Expression& expression : expressions)
        texts.emplace_back(expression.point);
    for (auto _ : state) {
        for (const std::string& text : texts) {
            parser.SetExpr(text);
            benchmark::DoNotOptimize(parser.Eval());
        }
    }
    items(state, kCount);
}
#endif

template <std::size_t kCount>
void addAll(const std::string& name, const Expression (&expressions)[kCount]) {
    const auto add = [&](const char* who, void (*run)(benchmark::State&, const Expression(&)[kCount])) {
        benchmark::RegisterBenchmark((name + who).c_str(),
                                     [run, &expressions](benchmark::State& state) { run(state, expressions); });
    };
    add("/orv", evaluateOrv<kCount>);
    if (kCount == std::size(kExpressions)) add("/orv-evaluate", evaluateView<kCount>);
#if defined(ORV_PEER_FPARSER)
    add("/fparser", evaluateFparser<kCount>);
#endif
#if defined(ORV_PEER_MUPARSER)
    add("/muparser", evaluateMuParser<kCount>);
#endif
}

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    addAll("expression/typical", kExpressions);
    addAll("expression/one-macro", kWithMacro);
    benchmark::RunSpecifiedBenchmarks();
}
