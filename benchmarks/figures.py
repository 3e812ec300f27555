"""Writes the figures of docs/PERFORMANCE.md and the chart docs/performance.svg from what the benchmarks printed as JSON:

    benchmarks/figures.py <folder with NAME.json of each NAMEBenchmark>

Each figure is the median of its repetitions. A row compares ours with a peer of the same run.
"""
import json
import math
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = ROOT / "docs" / "PERFORMANCE.md"
CHART = ROOT / "docs" / "performance.svg"
BEGIN, END = "<!-- figures, written by scripts/bench -->", "<!-- end of figures -->"


class Row:
    """What is measured, the benchmark that does it, its peer (several add up) and what is to be reached: a ratio, or a
    `most` of nanoseconds, a `least` of GB/s, or so many nanoseconds `beside` the peer."""

    def __init__(self, what, ours, peer=(), against="", ratio=None, most=None, least=None, beside=None, unit="call"):
        self.what, self.ours, self.against, self.unit = what, ours, against, unit
        self.peers = [peer] if isinstance(peer, str) else list(peer)
        self.ratio, self.most, self.least, self.beside = ratio, most, least, beside


FIGURES = {
    "String": [
        Row("`tvstring` copy", "copy<tvstring>", "copy<PlainView>", "plain counted view", ratio=1.2),
        Row("`tvstring::substr`", "substr<tvstring>", "substr<PlainView>", "plain counted view", ratio=1.2),
        Row("assignment of a view", "assignView<tvstring>", "assignView<PlainView>", "plain counted view", ratio=1.2),
        Row("`find(char)`, 16 bytes", "find/16", "findByMemchr/16", "`memchr`", ratio=1.2),
        Row("`find(char)`, 1 KB", "find/1024", "findByMemchr/1024", "`memchr`", ratio=1.2),
        Row("`t_atoi`", "read<int>", "readByFromChars<int>", "`from_chars`", ratio=1.2),
        Row("`t_atol`", "read<long long>", "readByFromChars<long long>", "`from_chars`", ratio=1.2),
        Row("`t_itoa`", "write<int>", "writeByToChars<int>", "`to_chars`", ratio=1.2),
        Row("`t_ltoa`", "write<long long>", "writeByToChars<long long>", "`to_chars`", ratio=1.2),
        Row("`doubleToString`, prices", "writeDoubles<Ours, prices>", "writeDoubles<Snprintf, prices>", "`snprintf`",
            ratio=0.08),
        Row("the same", "writeDoubles<Ours, prices>", "writeDoubles<ToChars, prices>", "`to_chars`", ratio=0.45),
        Row("`doubleToString`, 1e-6 to 1e15", "writeDoubles<Ours, spread>", "writeDoubles<Snprintf, spread>",
            "`snprintf`", ratio=0.08),
        Row("the same", "writeDoubles<Ours, spread>", "writeDoubles<ToChars, spread>", "`to_chars`", ratio=0.45),
    ],
    "Binary": [
        Row("hexadecimal of 1 MB written", "hexEncode", "copy", "copy", least=1, unit="byte"),
        Row("hexadecimal read", "hexDecode", "copy", "copy", least=1, unit="byte"),
        Row("base64 written", "base64Encode", "base64EncodePlain", "without wide instructions", least=1, unit="byte"),
        Row("base64 read", "base64Decode", "base64DecodePlain", "without wide instructions", least=1, unit="byte"),
    ],
    "Date": [
        Row("\"yyyyMMdd-HH:mm:ss.SSS\" read", "ReadDate", "ReadDatePeer", "`strptime`, `timegm`", ratio=0.18),
        Row("the same written", "WriteDate", "WriteDatePeer", "`strftime`", ratio=0.10),
    ],
    "Decimal": [
        Row(f"{what}, {text}", f"{name}/{key}/BigDecimal", f"{name}/{key}/cpp_dec_float", "`cpp_dec_float<50>`", ratio=r)
        for name, what, r in (("fromText", "`BigDecimal` from text", 0.3), ("toText", "to text", 0.15),
                              ("add", "add", 1.3), ("multiply", "multiply", 1.3), ("divide", "divide", 0.6))
        for key, text in (("30digits", "30 digits"), ("price", "prices"))
    ],
    "Parsing": [
        Row("`parseDouble`, a price", "1024 prices/parseDouble", "1024 prices/from_chars", "`from_chars`", ratio=0.6,
            unit="item"),
        Row("catalogue text with two arguments", "formatMessage/two arguments", most=150),
    ],
    "Router": [
        Row("`processMessage`", "BM_ProcessMessage", "BM_IdentifyAndProcessByHand", "the same calls by hand", most=100),
        Row("10,000 configurations, the last matches; each", "BM_LastOfManyConfigurations/10000", most=10,
            unit="per configuration"),
    ],
    "Record": [
        Row("typed getter", "getDeclared", "getPlain", "plain struct", beside=1),
        Row("typed setter", "setDeclared", "setPlain", "plain struct", beside=1),
        Row("`getField(i, out)`", "readIntoWrapper<Order>", "readIntoWrapper<GeneratedOrder>", "class written by hand"),
        Row("`getField(i)`", "readAsNewWrapper<Order>", "readAsNewWrapper<GeneratedOrder>", "class written by hand"),
    ],
    "Aggregate": [
        Row("`secSumDouble`, an element", "sum<Declared>", "sumPlain", "vector of structs", most=10, unit="item"),
        Row("`fieldValueCount` of a text", "countText<Declared>", "countTextPlain", "vector of structs", most=10,
            unit="item"),
        Row("`secMaxDouble`", "max<Declared>", "maxPlain", "vector of structs", most=10, unit="item"),
    ],
    "Storage": [
        Row("binary form written, 15 fields and 5 legs", "writeDeclared", "writeProtobuf", "protobuf", ratio=0.7),
        Row("binary form read", "readDeclared", "readProtobuf", "protobuf", ratio=0.8),
        Row("written, record class by hand", "writeGenerated", "writeProtobuf", "protobuf", ratio=4),
        Row("read, record class by hand", "readGenerated", "readProtobuf", "protobuf", ratio=4),
        Row("XML written", "xmlDeclared", "xmlPugixml", "pugixml", ratio=0.35),
    ],
    "Context": [
        Row("`TransformContext::getProperty`, 10 entries", "BM_TransformContext/position:9/alike:1",
            "BM_StdMapOfStdString/position:9/alike:1", "`std::map`", most=15),
        Row("`IPropertyMap::getProperty`, first of 10", "BM_PropertyMap/position:0/alike:1",
            "BM_PairsOfStdString/position:0/alike:1", "vector of pairs", most=15),
        Row("last of 10", "BM_PropertyMap/position:9/alike:1", "BM_PairsOfStdString/position:9/alike:1",
            "vector of pairs", most=15),
    ],
    "Failure": [
        Row("a failure raised, passed through three levels, caught", "transformException", "runtimeError",
            "`std::runtime_error`", most=5000),
    ],
    "Pipeline": [
        Row("`processInput`, 10 fields", "BM_ProcessInputOfTenFields", "BM_ParseTenFieldsByHand", "the parsing alone"),
        Row("`processAll`, a rule and a validator", "BM_ProcessAll", "BM_RunRulesByHand", "the rules alone", beside=60),
        Row("`AbstractOutputFormat::write`, 100 kB", "BM_WriteOutput", "BM_WriteDeviceByHand", "the device alone"),
    ],
    "Formula": [
        Row(f"`{name}`", name, name + "Peer", "`std::string`")
        for name in ("left", "mid", "right", "trim", "upper", "lower", "replaceText")
    ] + [
        Row(f"`{name}`", name, name + "Called", "what it calls", ratio=2)
        for name in ("formatNumber", "roundDouble", "floorDouble", "daysBetween", "addMonths")
    ],
    "UniversalRead": [
        Row("delimited, 10 MB, 10 columns, each a view", "delimitedViews", "delimitedViewsByHand",
            "`memchr` over a `string_view`", ratio=1.3),
        Row("the same, 5 columns as numbers", "delimitedNumbers", "delimitedNumbersByHand", "and `from_chars`",
            ratio=1.2),
        Row("fixed records of 94 bytes, 6 of 12 fields as numbers", "fixedFields", "fixedFieldsByHand",
            "`substr` and `from_chars`", ratio=1.5),
    ] + [Row(f"packed decimals of {n} digits, a digit", f"packed<{n}>", most=1, unit="item") for n in (5, 9, 15, 18)],
    "UniversalWrite": [
        Row("a field of fixed width", "fixedFields", "fixedFieldsSnprintf", "`snprintf`", ratio=0.25, unit="item"),
        Row("a field with a delimiter", "delimitedFields", "delimitedFieldsSnprintf", "`snprintf`", ratio=0.25,
            unit="item"),
    ] + [
        Row(f"packed decimals of {n} digits, a digit", f"packedDecimal/{n}", f"packedDecimalByDigit/{n}",
            "digit by digit", most=1, unit="item") for n in (5, 9, 15, 18)
    ],
    "FIX": [
        Row(f"`FIXTokenizer`, {what}", f"{name}/FIXTokenizer", f"{name}/{peer}", against, ratio=ratio, unit="item")
        for what, name in (("NewOrderSingle", "256 NewOrderSingle"), ("ExecutionReport", "256 ExecutionReport"),
                           ("MarketDataSnapshot", "256 MarketDataSnapshot"), ("News with data", "256 News"))
        for peer, against, ratio in (("written by hand", "counted walk by hand", 1.0),
                                     ("QuickFIX setString", "QuickFIX", 0.12))
    ] + [
        Row("NewOrderSingle into a record", "256 NewOrderSingle into a record/FIXInputParser",
            "256 NewOrderSingle into a record/QuickFIX", "QuickFIX, typed getters", ratio=0.15, unit="item"),
        Row("header of a message of 1 MB", "header, body of/1048576", "header, body of/1024", "of 1 KB", ratio=1.2),
    ],
    "FIXWrite": [
        Row("NewOrderSingle written", "256 NewOrderSingle/FIXOutputWriter", "256 NewOrderSingle/QuickFIX", "QuickFIX",
            ratio=0.08, unit="item"),
        Row("ExecutionReport written", "256 ExecutionReport/FIXOutputWriter", "256 ExecutionReport/QuickFIX",
            "QuickFIX", ratio=0.08, unit="item"),
        Row("CheckSum of 300 bytes", "CheckSum/ours/300", "CheckSum/byte by byte/300", "byte by byte", ratio=0.1),
        Row("CheckSum of 1 KB", "CheckSum/ours/1024", "CheckSum/byte by byte/1024", "byte by byte", ratio=0.1),
    ],
    "FCS": [
        Row("`LineReader`, 10 MB in lines of 40 bytes", "lines of 10 MB/LineReader",
            "lines of 10 MB/memchr over a copy", "`memchr` over a copy", least=3, unit="byte"),
        Row("a line of 12 tokens", "12 tokens/FCSLineTokenizer", "12 tokens/memchr", "`memchr`", most=60),
        Row("an order of 5 lines read", "order/read"),
        Row("the same, and written back", "order/read and written back", most=1000),
    ],
    "Road": [
        Row("`processMessage`: 10 fields, two messages, device in memory", "BM_ProcessMessage",
            ("BM_FormatParses", "BM_FormatWrites"), "the format's own parser and writer", beside=500),
    ],
    "FIXRoad": [
        Row("`processMessage`: NewOrderSingle in, a line out", "NewOrderSingle to a line/processMessage",
            "NewOrderSingle to a line/QuickFIX", "QuickFIX and `snprintf`", ratio=0.25),
    ],
    "Threads": [
        Row("two threads, a router in each; a message of either", "BM_RouterForEachThread/real_time/threads:2",
            "BM_RouterForEachThread/real_time/threads:1", "one thread", ratio=round(1 / 1.9, 3), unit="item"),
    ],
}

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def measured(result, unit):
    """Nanoseconds, or GB/s for bytes."""
    if unit == "byte":
        return result["bytes_per_second"] / 1e9
    if unit == "item":
        return 1e9 / result["items_per_second"]
    if unit == "call":
        return result["cpu_time"] * NANOSECONDS[result["time_unit"]]
    return result[unit] * 1e9


def shown(value, unit):
    if unit == "byte":
        return f"{value:.1f} GB/s"
    for name, size in (("ms", 1e6), ("us", 1e3)):
        if value >= size:
            return f"{value / size:.3g} {name}"
    return f"{value:.3g} ns"


class Figure:
    """A row with what was measured."""

    def __init__(self, row, results):
        self.row = row
        self.ours = measured(results[row.ours], row.unit)
        self.peer = sum(measured(results[p], row.unit) for p in row.peers) if row.peers else None
        # Of times, so that less is better for rates, too.
        self.ratio = None
        if self.peer:
            self.ratio = self.peer / self.ours if row.unit == "byte" else self.ours / self.peer

    def limit(self):
        row = self.row
        if row.ratio is not None:
            return f"{row.ratio:g}", self.ratio <= row.ratio
        if row.most is not None:
            return shown(row.most, "call"), self.ours <= row.most
        if row.least is not None:
            return f"{row.least:g} GB/s", self.ours >= row.least
        if row.beside is not None:
            return f"{row.beside:g} ns beside", self.ours - self.peer <= row.beside
        return "", True

    def line(self):
        limit, reached = self.limit()
        peer = f"{shown(self.peer, self.row.unit)}, {self.row.against}" if self.peer else ""
        ratio = f"{self.ratio:.2g}" if self.ratio else ""
        return f"| {self.row.what} | {shown(self.ours, self.row.unit)} | {peer} | {ratio} | " \
               f"{limit}{'' if reached else ' **missed**'} |"


def read(folder):
    """The figures of each benchmark program that has run."""
    groups = {}
    for name, rows in FIGURES.items():
        file = folder / f"{name}Benchmark.json"
        if not file.exists():
            print(f"{name}Benchmark did not run: its figures are left out", file=sys.stderr)
            continue
        benchmarks = json.loads(file.read_text())["benchmarks"]
        results = {b["run_name"]: b for b in benchmarks if b.get("aggregate_name") == "median"}
        groups[name] = [Figure(row, results) for row in rows]
    return groups


def table(groups):
    lines = ["| What | Ours | Peer, same run | Ratio | To reach |", "|---|---|---|---|---|"]
    for name, figures in groups.items():
        lines.append(f"| **{name}Benchmark** | | | | |")
        lines += [figure.line() for figure in figures]
    return "\n".join(lines)


STYLE = """text { font: 12px sans-serif; fill: #24292f } .group { font-weight: bold } .value { font-size: 11px }
.ours { fill: #2f6fb0 } .missed { fill: #b8552f } .limit { stroke: #24292f; stroke-width: 2 } .grid { stroke: #8c959f66 }
.one { stroke: #24292f; stroke-dasharray: 4 3 }
@media (prefers-color-scheme: dark) { text { fill: #d0d7de } .limit, .one { stroke: #d0d7de } }"""


def chart(groups):
    """Bars of ours over the peer on a logarithmic scale: shorter is faster, a mark shows what is to be reached."""
    left, width, step, least, most = 360, 520, 18, 0.03, 3.0

    def x(ratio):
        part = math.log(min(max(ratio, least), most) / least) / math.log(most / least)
        return left + part * width

    def escaped(text):
        return text.replace("`", "").replace("&", "&amp;").replace("<", "&lt;").replace("\"", "&quot;")

    body, y = [], 44
    for name, figures in groups.items():
        figures = [f for f in figures if f.ratio and f.ratio < most]
        if not figures:
            continue
        body.append(f'<text class="group" x="8" y="{y + 13}">{name}</text>')
        y += step
        for f in figures:
            body.append(f'<text x="20" y="{y + 13}">{escaped(f.row.what)[:52]}</text>')
            kind = "ours" if f.limit()[1] else "missed"
            body.append(f'<rect class="{kind}" x="{left}" y="{y + 3}" width="{x(f.ratio) - left:.1f}" height="12"/>')
            body.append(f'<text class="value" x="{x(f.ratio) + 6:.1f}" y="{y + 13}">'
                        f'{f.ratio:.2g} of {escaped(f.row.against)}</text>')
            if f.row.ratio is not None:
                at = f"{x(f.row.ratio):.1f}"
                body.append(f'<line class="limit" x1="{at}" x2="{at}" y1="{y + 1}" y2="{y + 17}"/>')
            y += step
    grid = []
    for ratio in (0.03, 0.1, 0.3, 1, 3):
        at = f"{x(ratio):.1f}"
        grid.append(f'<line class="{"one" if ratio == 1 else "grid"}" x1="{at}" x2="{at}" y1="36" y2="{y}"/>'
                    f'<text class="value" x="{at}" y="30" text-anchor="middle">{ratio:g}</text>')
    title = "Time of ours over time of the peer, same run; the mark is what is to be reached"
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {left + width + 220} {y + 10}">\n<style>{STYLE}</style>\n'
            f'<title>{title}</title>\n<text class="group" x="8" y="16">{title}</text>\n' + "\n".join(grid + body) + "\n</svg>\n")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    groups = read(pathlib.Path(sys.argv[1]))
    page = PAGE.read_text()
    before, after = page.split(BEGIN)[0], page.split(END)[1]
    PAGE.write_text(f"{before}{BEGIN}\n\n{table(groups)}\n\n{END}{after}")
    CHART.write_text(chart(groups))
    missed = [f.row.what for figures in groups.values() for f in figures if not f.limit()[1]]
    print(f"{sum(map(len, groups.values()))} figures, {len(missed)} missed{': ' if missed else ''}{'; '.join(missed)}")


if __name__ == "__main__":
    main()
