#!/bin/sh
# Compiles the encoder, encodes the documents with the reference codec and
# runs the check on the result. Exits 77 (skipped) when Java or the codec is
# missing.
javac=$1 java=$2 jar=$3 source=$4 work=$5 check=$6
shift 6
for tool in "$javac" "$java"; do
    if [ ! -x "$tool" ]; then
        echo "SKIPPED: a Java compiler and runtime (javac, java) are needed to run the reference encoder"
        exit 77
    fi
done
if [ ! -f "$jar" ]; then
    echo "SKIPPED: the reference Fast Infoset codec is missing ($jar; Debian package libfastinfoset-java)"
    exit 77
fi
rm -rf "$work" && mkdir -p "$work/classes" || exit 1
"$javac" -d "$work/classes" -cp "$jar" "$source" || exit 1
"$java" -cp "$work/classes:$jar" FiReferenceEncode "$work/out" "$@" || exit 1
exec "$check" "$work/out"
