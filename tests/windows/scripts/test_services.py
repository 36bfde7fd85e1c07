"""Objects of scripts as the library's services."""
import script_test
from script_test import Script, dump, expect_equal, windows_path


def test(test):
    jobs = test.subfolder("jobs")
    files = test.subfolder("files")
    before_names = f"file:{windows_path(files)}\\"
    test.run_scripts(Script("services.vbs", before_names), Script("services.js", before_names),
                     options=["--dir", jobs])
    printed = {
        # Each replacement of both writes has added what it was asked to replace.
        "textos.prn": "[A<00>]<0D><0A>\n" + 2 * "<E1><E9><ED><F3><FA><F1><D1><BA>" + "\n",
        "respuestas.prn": "12(texto)\n",
        "js.prn": "{  A<F1>o}<0D><0A>\n",
    }
    for name, expected in printed.items():
        expect_equal(name, expected, dump((files / name).read_bytes()))
    expect_equal("jobs on the printer", [], list(jobs.glob("job-*.prn")))


if __name__ == "__main__":
    script_test.run(test)
