#!/usr/bin/env bash
# Shows the component at work: a made-up firm, its companies and contacts carried to Outlook, and a second run that must
# create nothing. Installs what is missing, asks nothing, and fails when something is not as it should be.
# What it makes stays in build/demo until the next time.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

wrong() {
    echo "This is not as it should be: $*" >&2
    exit 1
}

scripts/install.sh demo
mkdir -p build
if [[ ! -x build/release/bin/tallowsync ]]; then echo "Building the program, which takes a few minutes ..."; fi
if ! scripts/build.sh release >build/demo-build.log 2>&1; then
    tail -n 40 build/demo-build.log >&2
    wrong "the program could not be built"
fi

tallowsync=build/release/bin/tallowsync
demo=build/demo
rm -rf "$demo"

# The made-up firm, and an Outlook that already knows some of its people
"$tallowsync" sample "$demo" >/dev/null
contacts_folder=$("$tallowsync" outlook "$demo/outlook.db" folders --json | jq -r 'map(select(.type == "contacts"))[0].path')
list_items() { "$tallowsync" outlook "$demo/outlook.db" list --folder "$contacts_folder" --json >"$demo/$1"; }

# sync_all NAME: one run of every company and contact of the firm to Outlook, reported in NAME.json
sync_all() {
    local status=0
    "$tallowsync" sync --firm "$demo/firm.db" --outlook "$demo/outlook.db" --objects contacts --direction to-outlook \
        --companies all --contacts all --json >"$demo/$1.json" 2>"$demo/$1.log" || status=$?
    if [[ $status -gt 1 ]]; then  # 1 is a run that is done and met failures: they are shown
        cat "$demo/$1.log" >&2
        wrong "the $1 run did not go through"
    fi
}
# written REPORT SIDE KIND [FILTER]: how many records of that kind the run created, updated or deleted
written() { jq ".written.$2.$3 | map(select(${4:-true})) | length" "$demo/$1"; }
# links REPORT FIELD: how many links the run stored for companies (CompanyNum) or contacts (ContactNum)
links() { jq "[.written.host | (.created + .updated)[] | select(.table == \"OutlookSync\" and .$2 != null)] | length" "$demo/$1"; }
new_links() { written "$1" host created '.table == "OutlookSync"'; }
failures() { jq '.errors | length' "$demo/$1"; }
items_in() { jq length "$demo/$1"; }
# shared REPORT: how many clients of the run have no item to themselves: each client has one link, and those of one name one item
shared() {
    jq '([.written.host | (.created + .updated)[] | select(.table == "OutlookSync")] | length)
        - ([.written.outlook | (.created + .updated)[]] | length)' "$demo/$1"
}

list_items before.json
sync_all first
list_items after-first.json
sync_all second
list_items after-second.json

cat <<END
A made-up accounting firm lies in $demo/firm.db, an Outlook in $demo/outlook.db.
Outlook's folder $contacts_folder had $(items_in before.json) items of its own.

First run, all companies and contacts to Outlook:
  written        $(links first.json CompanyNum) companies and $(links first.json ContactNum) contacts
  in Outlook     $(written first.json outlook created) items created, $(written first.json outlook updated) that were there already updated
  linked         $(new_links first.json) new links between the firm and Outlook; $(shared first.json) clients share the item of another of the same name
  failures       $(failures first.json)
  took           $(jq .seconds "$demo/first.json") seconds

Second run, the same again:
  written        $(links second.json CompanyNum) companies and $(links second.json ContactNum) contacts
  in Outlook     $(written second.json outlook created) items created, $(written second.json outlook updated) updated
  linked         $(new_links second.json) new links
  failures       $(failures second.json)

Some of the new items, as Outlook shows them:
END
jq -r --slurpfile run "$demo/first.json" '
    ($run[0].written.outlook.created | .[0:2] + .[-3:]) as $shown
    | map(select(.EntryID | IN($shown[])))[]
    | "  " + ([.FileAs, .JobTitle, .BusinessTelephoneNumber // .HomeTelephoneNumber, .Email1Address, .BusinessAddressCity // .HomeAddressCity]
              | map(select(. != null and . != "")) | join(", "))' "$demo/after-first.json"

# What was shown has to be right.
for run in first second; do
    [[ $(failures "$run.json") -eq 0 ]] || wrong "the $run run met failures, see $demo/$run.json"
    [[ $(links "$run.json" CompanyNum) -gt 0 && $(links "$run.json" ContactNum) -gt 0 ]] || wrong "the $run run wrote no clients"
done
[[ $(written first.json outlook created) -gt 0 ]] || wrong "the first run created nothing in Outlook"
[[ $(items_in after-first.json) -eq $(($(items_in before.json) + $(written first.json outlook created))) ]] ||
    wrong "Outlook does not hold what the first run says that it created"
[[ $(written second.json outlook created) -eq 0 && $(items_in after-second.json) -eq $(items_in after-first.json) ]] ||
    wrong "the second run created items once more"
[[ $(new_links second.json) -eq 0 ]] || wrong "the second run linked clients once more"

cat <<END

The second run found every item that the first one wrote, and created none.
To look around: $tallowsync outlook $demo/outlook.db list
END
