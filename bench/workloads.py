"""What scripts/bench times: flows of ours, and what other programs do with the same files."""
import pathlib
from collections import namedtuple

OTHERS = pathlib.Path(__file__).resolve().parent / "others"

# others: [(name, command)], where {in}, {in2} and {out} stand for files and without {out} the standard output is taken;
# goals: highest ratios (cpu, wall, memory) to the fastest of them, None where there is none; limit: most MiB
Workload = namedtuple("Workload", "name flow inputs others goals limit suffix")


def miller(name, flow, inputs, arguments, goals=(0.6, 1.0, None), suffix="csv"):
    return Workload(name, flow, inputs, [("Miller", ["mlr", *arguments])], goals, None, suffix)


def alone(name, flow, inputs):
    return Workload(name, flow, inputs, [], (None, None, None), None, "csv")


def python(script):
    # Debian's interpreter, since its modules are Debian's.
    return ["/usr/bin/python3", str(OTHERS / script), "{in}", "{out}"]


WORKLOADS = [
    alone("one row", "w00_startup", ["tiny.csv"]),
    miller("read and write", "w01_passthrough", ["orders.csv"], ["--csv", "cat", "{in}"], (0.6, 1.0, 0.8)),
    miller("clean 3 columns", "w03_clean", ["orders.csv"],
           ["--csv", "put", '$customer=tolower(clean_whitespace($customer)); $email=tolower(clean_whitespace($email));'
            ' $status=tolower(clean_whitespace($status))', "{in}"], (0.6, 1.0, 0.8)),
    miller("insert on 2 columns", "w17_insert", ["orders.csv"],
           ["--csv", "put", '$id="No. ".$id; $product="No. ".$product', "{in}"], (0.6, 1.0, 0.8)),
    miller("filter", "w02_filter", ["orders.csv"],
           ["--csv", "filter", '$country=="Germany" && $unit_price>500', "{in}"], (0.6, 1.0, None)),
    miller("join", "w07_join", ["orders.csv", "customers.csv"],
           ["--csv", "join", "-j", "customer_id", "-f", "{in2}", "{in}"], (0.6, 1.0, None)),
    miller("dedupe exact", "w09_dedupe", ["orders.csv"], ["--csv", "head", "-n", "1", "-g", "email", "{in}"],
           (0.6, 1.0, None)),
    miller("lookup exact", "w11_lookup", ["orders.csv", "customers.csv"],
           ["--csv", "join", "--ur", "-j", "customer_id", "-f", "{in2}", "{in}"], (0.6, 1.0, None)),
    miller("sort", "w06_sort", ["orders.csv"],
           ["--csv", "put", '$k=strptime($order_date,"%d/%m/%Y")', "then", "sort", "-nr", "k", "-nf", "unit_price", "then",
            "cut", "-x", "-f", "k", "{in}"], (0.3, 0.4, None)),
    miller("calculate", "w04_calculate", ["orders.csv"], ["--csv", "put", '$c=$quantity*$unit_price', "{in}"],
           (0.6, 1.0, None)),
    miller("replace by regex", "w16_regex", ["orders.csv"],
           ["--csv", "put", '$note=gsub($note,"[0-9]{3}-[0-9]{4}","XXX-XXXX")', "{in}"], (0.6, 1.0, None)),
    miller("pivot, sum", "w08p_pivot", ["orders.csv"],
           ["--csv", "stats1", "-a", "sum", "-f", "quantity", "-g", "product,country", "then", "reshape", "-s",
            "country,quantity_sum", "{in}"], (0.6, 1.0, None)),
    miller("pivot, mean", "w08m_pivot_mean", ["orders.csv"],
           ["--csv", "stats1", "-a", "mean", "-f", "quantity", "-g", "product,country", "then", "reshape", "-s",
            "country,quantity_mean", "{in}"], (0.6, 1.0, None)),
    miller("unique, sum and count", "w08_group", ["orders.csv"],
           ["--csv", "stats1", "-a", "sum,count", "-f", "quantity", "-g", "country,product", "{in}"], (0.6, 1.0, None)),
    miller("date format", "w05_dates", ["orders.csv"],
           ["--csv", "put", '$order_date=strftime(strptime($order_date,"%d/%m/%Y"),"%Y-%m-%d")', "{in}"], (0.6, 1.0, None)),
    miller("split into columns", "w18_split", ["orders.csv"],
           ["--csv", "--allow-ragged-csv-input", "put", '$customer1=splitax($customer," ")[1]; '
            '$customer2=splitax($customer," ")[2]', "{in}"], (0.6, 1.0, None)),
    miller("chain of eight", "w19_chain", ["orders.csv", "customers.csv"],
           ["--csv", "put", '$customer=clean_whitespace($customer); $email=clean_whitespace($email); '
            '$status=clean_whitespace($status); $order_date=strftime(strptime($order_date,"%d/%m/%Y"),"%Y-%m-%d"); '
            '$c=$quantity*$unit_price', "then", "filter", '$unit_price>500', "then", "join", "-j", "customer_id", "-f", "{in2}",
            "then", "sort", "-r", "order_date", "-nf", "unit_price", "then", "head", "-n", "1", "-g", "email", "then", "stats1",
            "-a", "sum", "-f", "quantity", "-g", "product,country", "then", "reshape", "-s", "country,quantity_sum", "{in}"],
           (0.4, 0.4, None)),
    miller("wide, cut to 10", "w15c_wide_cut", ["wide.csv"],
           ["--csv", "cut", "-f", ",".join("c%04d" % i for i in range(1, 1000, 100)), "{in}"], (0.2, 0.2, None)),
    alone("moving, 100,000 rows", "w20_moving", ["orders_part.csv"]),
    alone("fuzzy dedupe 20,000", "w10_fuzzy_dedupe", ["names.csv"]),
    alone("fuzzy dedupe 5,000", "w10_fuzzy_dedupe", ["names5000.csv"]),
]

FORMATS = [
    miller("JSON lines to CSV", "w12a_json_lines_to_csv", ["flat1m.jsonl"], ["--ijsonl", "--ocsv", "cat", "{in}"]),
    miller("CSV to JSON", "w12d_csv_to_json", ["flat1m.csv"], ["--icsv", "--ojson", "cat", "{in}"], suffix="json"),
    alone("nested JSON, long", "w12b_nested_json_long", ["nested.json"]),
    alone("nested JSON, wide", "w12c_nested_json_wide", ["nested.json"]),
    Workload("read .xlsx", "w13a_xlsx_to_csv", ["sheet.xlsx"],
             [("openpyxl", python("openpyxl_read.py")), ("ssconvert", ["ssconvert", "{in}", "{out}"])],
             (None, 0.33, None), 200, "csv"),
    Workload("write .xlsx", "w13b_csv_to_xlsx", ["sheet.csv"],
             [("openpyxl", python("openpyxl_write.py")), ("xlsxwriter", python("xlsxwriter_write.py")),
              ("ssconvert", ["ssconvert", "{in}", "{out}"])],
             (None, 0.33, None), 200, "xlsx"),
    Workload("read .xls", "w13c_xls_to_csv", ["sheet.xls"], [("ssconvert", ["ssconvert", "{in}", "{out}"])],
             (None, None, None), 200, "csv"),
    Workload("write .xls", "w13d_csv_to_xls", ["sheet65.csv"], [("ssconvert", ["ssconvert", "{in}", "{out}"])],
             (None, None, None), 200, "xls"),
    Workload("1,000 files of 1,000 rows", "w21_folder", ["many/"],
             [("one file", ["{quillmere}", "w01_passthrough", "many.csv", "{out}"])], (None, 1.33, None), None, "csv"),
]
