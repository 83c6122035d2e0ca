#!/usr/bin/env python3
"""The schemas of `blobxlate schema`, held against a real JSON Schema
validator: each example message passes its type's schema and the message the
library sends back for it passes the sent schema; messages a careful sender
never sends fail their schema, and `blobxlate check` names the mistake.

  tests/test_schema.py BLOBXLATE EXAMPLES_DIR
"""
import json
import os
import subprocess
import sys

try:
    from jsonschema import Draft202012Validator
except ImportError:
    print("no python3-jsonschema: skipped (scripts/setup installs it)")
    sys.exit(77)

# type, message, what `blobxlate check` says (a fragment of its line)
CARELESS = [
    (22, {"workmode": "DHCP", "wanmode": "DHCP"}, "wanmode"),        # a key of no such name
    (40, {"num": 4}, "host"),                                          # the required host missing
    (22, {"dhcprt": "3600"}, "dhcprt"),                                # a number sent as text
    (22, {"connum": 1.5}, "connum"),                                   # ... as a fraction
    (22, {"workmode": "dhcp-bogus"}, "workmode"),                      # a word of no such kind
    (40, {"host": "192.168.1.1", "num": 70000}, "num"),                # outside the message's range
    (22, {"ip": "100.100.100.100.1"}, "ip"),                           # longer than its slot
    (45, {"lanindex": list(range(9))}, "lanindex"),                    # more entries than the record holds
]
# JSON text has one kind of number: a small counter becomes INT32, which only the checker sees.
CHECKED_ONLY = [(47, {"txerrors": 5}, "txerrors: INT32 where INT64 is read: ignored; send it with blobmsg_add_u64")]


def run(*args, stdin=None):
    return subprocess.run(list(args), input=stdin, capture_output=True, text=True)


def schemas(tool, sent):
    out = run(tool, "schema", *(["--sent"] if sent else []), "all")
    assert out.returncode == 0, out.stderr
    found = json.loads(out.stdout)
    for schema in found.values():
        Draft202012Validator.check_schema(schema)
    return found


def errors(schema, message):
    return [f"{list(e.absolute_path)}: {e.message}" for e in Draft202012Validator(schema).iter_errors(message)]


def main(tool, examples):
    received, sent = schemas(tool, False), schemas(tool, True)
    failures = []
    for name in sorted(os.listdir(examples)):
        path = os.path.join(examples, name)
        number = str(int(name[4:7]))  # typeNNN.json
        with open(path, encoding="utf-8") as f:
            failures += [f"{name}: {e}" for e in errors(received[number], json.load(f))]
        if number in sent:
            answer = run(tool, number, path).stdout.split("\n", 2)[2]
            failures += [f"{name}, sent back: {e}" for e in errors(sent[number], json.loads(answer))]
    for number, message, named in CARELESS + CHECKED_ONLY:
        text = json.dumps(message)
        if not errors(received[str(number)], message) and (number, message, named) not in CHECKED_ONLY:
            failures.append(f"type {number}: the schema lets {text} pass")
        check = run(tool, "check", str(number), stdin=text)
        if check.returncode != 1 or named not in check.stdout:
            failures.append(f"type {number}: check {text} exits {check.returncode} without naming {named}: "
                            f"{check.stdout}{check.stderr}")
    print("\n".join(failures) or f"{len(os.listdir(examples))} examples pass their schemas, "
                                  f"{len(CARELESS)} careless messages are refused and named")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
