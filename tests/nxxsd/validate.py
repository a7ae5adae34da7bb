#!/usr/bin/env python3
"""Checks an XML document against an XML Schema with the independent
validator of the python3-xmlschema package.

usage: validate.py SCHEMA.xsd DOCUMENT.xml
Exit status: 0 valid, 1 invalid (the reason on standard output), 77 when
the xmlschema module is not installed.
"""
import sys

try:
    import xmlschema
except ImportError:
    print("the Python module xmlschema is missing (Debian package python3-xmlschema)")
    sys.exit(77)

schema = xmlschema.XMLSchema(sys.argv[1])
try:
    schema.validate(sys.argv[2])
except xmlschema.XMLSchemaException as error:
    print(str(error).splitlines()[0] if str(error) else repr(error))
    sys.exit(1)
sys.exit(0)
