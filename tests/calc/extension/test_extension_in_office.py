#!/usr/bin/python3
"""The Calc extension installed in a headless office of its own.

The package is installed with unopkg into a private folder (profile and shared package cache),
the office is started on that folder and a free local port, and this script drives it through
UNO as a macro would: it opens workbooks, dispatches vnd.orvella:Describe, :Circular and
:Frequency with arguments, and checks the cells and charts the commands leave, against what the
orvella command computes for the same file with its in-memory host, and the notes on kept
arithmetic rules that come back in the dispatch's result against the command's warnings.
Failures must finish the dispatch with the sentence the command prints, and leave the document
as it was. The office is stopped by its process id at the end, whatever happened.

Usage: test_extension_in_office.py --oxt orvella.oxt --orvella ORVELLA --office PROGRAM_DIR --examples DIR
"""

import argparse
import ctypes
import json
import math
import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.frame.DispatchResultState import DONTKNOW, FAILURE, SUCCESS

ARGS = None
OFFICE = None
START_TIMEOUT = 90  # seconds; a first start in a new profile restarts once
PROFILE_MADE = 81   # the office's exit code after making a new profile: start it again


def prop(name, value):
    p = PropertyValue()
    p.Name = name
    p.Value = value
    return p


def file_url(path):
    return uno.systemPathToFileUrl(os.path.abspath(path))


class Office:
    """soffice.bin on a private folder, the extension installed there first."""

    def __init__(self, folder):
        self.folder = folder
        self.env_args = [f'-env:UserInstallation={file_url(os.path.join(folder, "profile"))}',
                         f'-env:UNO_SHARED_PACKAGES_CACHE={file_url(os.path.join(folder, "shared", "cache"))}']
        self.log = open(os.path.join(folder, 'office.log'), 'wb')
        self.process = None
        self.install()
        self.port = self.free_port()
        self.context = self.connect()
        smgr = self.context.ServiceManager
        self.desktop = smgr.createInstanceWithContext('com.sun.star.frame.Desktop', self.context)
        self.dispatcher = smgr.createInstanceWithContext('com.sun.star.frame.DispatchHelper', self.context)

    def install(self):
        unopkg = os.path.join(ARGS.office, 'unopkg')
        done = subprocess.run([unopkg, 'add', '--shared', '-f', '--suppress-license', *self.env_args, ARGS.oxt],
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)
        if done.returncode != 0:
            raise RuntimeError(f'unopkg add failed ({done.returncode}): {done.stdout.decode(errors="replace")}')

    @staticmethod
    def free_port():
        with socket.socket() as s:
            s.bind(('127.0.0.1', 0))
            return s.getsockname()[1]

    def spawn(self):
        def die_with_parent():
            ctypes.CDLL('libc.so.6').prctl(1, signal.SIGKILL)  # PR_SET_PDEATHSIG
        self.process = subprocess.Popen(
            [os.path.join(ARGS.office, 'soffice.bin'), '--headless', '--invisible', '--nologo', '--norestore',
             '--nodefault', '--nolockcheck', *self.env_args,
             f'--accept=socket,host=127.0.0.1,port={self.port};urp;StarOffice.ComponentContext'],
            stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log, preexec_fn=die_with_parent,
            start_new_session=True)

    def connect(self):
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext('com.sun.star.bridge.UnoUrlResolver', local)
        self.spawn()
        deadline = time.monotonic() + START_TIMEOUT
        while time.monotonic() < deadline:
            code = self.process.poll()
            if code == PROFILE_MADE:
                self.spawn()
            elif code is not None:
                raise RuntimeError(f'the office exited with {code}; see {self.log.name}')
            try:
                return resolver.resolve(
                    f'uno:socket,host=127.0.0.1,port={self.port};urp;StarOffice.ComponentContext')
            except Exception:  # not listening yet
                time.sleep(0.25)
        raise RuntimeError(f'the office did not answer within {START_TIMEOUT} s')

    def stop(self):
        if self.process is None or self.process.poll() is not None:
            return
        self.process.terminate()
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()

    def load(self, path):
        return self.desktop.loadComponentFromURL(file_url(path), '_blank', 0, (prop('Hidden', True),))

    def dispatch(self, document, command, **arguments):
        args = tuple(prop(name, value) for name, value in arguments.items())
        frame = document.CurrentController.Frame
        return self.dispatcher.executeDispatch(frame, 'vnd.orvella:' + command, '', 0, args)


def setUpModule():
    global OFFICE
    folder = tempfile.mkdtemp(prefix='orvella-extension-')
    try:
        OFFICE = Office(folder)
    except BaseException:
        if OFFICE is None:
            shutil.rmtree(folder, ignore_errors=True)
        raise


def tearDownModule():
    if OFFICE is not None:
        OFFICE.stop()
        shutil.rmtree(OFFICE.folder, ignore_errors=True)


def run_command(analysis, workbook, *options):
    """The orvella command on the same file and options, with its own host. It writes its workbook
    to a scratch folder, since the command draws charts only into a workbook it writes."""
    with tempfile.TemporaryDirectory(prefix='orvella-command-') as scratch:
        suffix = os.path.splitext(workbook)[1].lower()
        written = os.path.join(scratch, 'out' + (suffix if suffix in ('.xlsx', '.xlsm') else '.xlsx'))
        return subprocess.run([ARGS.orvella, analysis, workbook, *options, '-o', written], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=120)


def command_report(analysis, workbook, *options):
    """What the orvella command reports for the same file and options, with its own host."""
    done = run_command(analysis, workbook, *options, '--json')
    if done.returncode != 0:
        raise AssertionError(f'orvella {analysis} failed: {done.stderr.decode()}')
    return json.loads(done.stdout)


def command_json(analysis, workbook, *options):
    """The block the orvella command pastes for the same file and options."""
    return command_report(analysis, workbook, *options)['block']


def command_failure(analysis, workbook, *options):
    """The line the orvella command prints for a failure, without its "orvella: " prefix."""
    done = run_command(analysis, workbook, *options)
    line = done.stderr.decode().strip().splitlines()[-1]
    assert done.returncode == 1 and line.startswith('orvella: '), done.stderr.decode()
    return line[len('orvella: '):]


def split_reference(text):
    """"'My data'!$A$1:$D$7" -> ("My data", "$A$1:$D$7")."""
    sheet, address = text.rsplit('!', 1)
    if sheet.startswith("'"):
        sheet = sheet[1:-1].replace("''", "'")
    return sheet, address


def cells(document, reference):
    sheet, address = split_reference(reference)
    return document.Sheets.getByName(sheet).getCellRangeByName(address).getDataArray()


def chart_description(chart):
    """A chart object of a sheet as (title, chart types, series, series with error bars)."""
    model = chart.getEmbeddedObject()
    title = model.getTitleObject()
    types, series, with_errors = [], 0, 0
    for system in model.getFirstDiagram().getCoordinateSystems():
        for chart_type in system.getChartTypes():
            types.append(chart_type.getChartType().rsplit('.', 1)[-1])
            for s in chart_type.getDataSeries():
                series += 1
                with_errors += s.getPropertyValue('ErrorBarY') is not None
    text = ''.join(part.getString() for part in title.getText()) if title is not None else ''
    return text, tuple(types), series, with_errors


def charts_on(document, sheet_name):
    charts = document.Sheets.getByName(sheet_name).getCharts()
    return [chart_description(charts.getByIndex(i)) for i in range(charts.getCount())]


def used_cells(sheet, of=None):
    """The cells of `of` (by default `sheet`) from A1 to the end of `sheet`'s used area."""
    cursor = sheet.createCursor()
    cursor.gotoEndOfUsedArea(False)
    end = cursor.getRangeAddress()
    return (of or sheet).getCellRangeByPosition(0, 0, end.EndColumn, end.EndRow).getDataArray()


def snapshot(document):
    """Everything a failed command must leave as it was: sheets, their cells, the modified flag
    and the undo list."""
    sheets = []
    for i in range(document.Sheets.getCount()):
        sheet = document.Sheets.getByIndex(i)
        sheets.append((sheet.getName(), used_cells(sheet), sheet.getCharts().getCount()))
    undo = document.getUndoManager().getAllUndoActionTitles()
    return sheets, document.isModified(), undo


class ExtensionTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix='case-', dir=OFFICE.folder)
        self.documents = []

    def tearDown(self):
        for document in self.documents:
            try:
                document.close(True)
            except Exception:
                pass
        shutil.rmtree(self.folder, ignore_errors=True)

    def open_copy(self, example):
        path = os.path.join(self.folder, example)
        shutil.copy(os.path.join(ARGS.examples, example), path)
        document = OFFICE.load(path)
        self.documents.append(document)
        return path, document

    def succeeded(self, result):
        """The pasted block's reference and the notes of a successful dispatch."""
        self.assertEqual(result.State, SUCCESS, result.Result)
        self.assertGreaterEqual(len(result.Result), 1)
        return result.Result[0], list(result.Result[1:])

    def made_workbook(self, name, cells, values):
        """A new workbook with `values` in Sheet1's `cells`, saved as .xlsx and opened again."""
        made = OFFICE.desktop.loadComponentFromURL('private:factory/scalc', '_blank', 0, (prop('Hidden', True),))
        made.Sheets.getByIndex(0).getCellRangeByName(cells).setDataArray(values)
        path = os.path.join(self.folder, name)
        made.storeToURL(file_url(path), (prop('FilterName', 'Calc MS Excel 2007 XML'),))
        made.close(True)
        document = OFFICE.load(path)
        self.documents.append(document)
        return path, document

    def assertSameBlock(self, office_block, command_block):
        self.assertEqual(len(office_block), len(command_block))
        for r, (got_row, want_row) in enumerate(zip(office_block, command_block)):
            for c, (got, want) in enumerate(zip(got_row, want_row)):
                where = f'row {r + 1}, column {c + 1}'
                if isinstance(want, (int, float)) and not isinstance(want, bool):
                    self.assertTrue(math.isclose(got, want, rel_tol=1e-9, abs_tol=1e-12), f'{where}: {got} != {want}')
                else:
                    self.assertEqual(got, '' if want is None else want, where)

    def assertKeptThroughFiles(self, document, sheet_name):
        """Saved as .xlsx and .ods and opened again, the results sheet holds the same cells and
        the same number of charts."""
        sheet = document.Sheets.getByName(sheet_name)
        expected = used_cells(sheet)
        chart_count = sheet.getCharts().getCount()
        for extension, filter_name in (('xlsx', 'Calc MS Excel 2007 XML'), ('ods', 'calc8')):
            with self.subTest(format=extension):
                path = os.path.join(self.folder, 'saved.' + extension)
                document.storeToURL(file_url(path), (prop('FilterName', filter_name),))
                again = OFFICE.load(path)
                self.documents.append(again)
                kept = again.Sheets.getByName(sheet_name)
                got = used_cells(sheet, kept)
                self.assertSameBlock(got, [[None if v == '' else v for v in row] for row in expected])
                self.assertEqual(kept.getCharts().getCount(), chart_count)

    def test_describe_with_arguments(self):
        path, document = self.open_copy('plants.xlsx')
        result = OFFICE.dispatch(document, 'Describe', InputRange='Heights!A1:C13', Headers=True, GetMean=True,
                                 GetMedian=True, GetSD=True, GetCL=True, CL=99, GetPercentile=True, PlotBox=True,
                                 BoxTitle='Heights', PlotError=True, ErrorTitle='Means', ErrorCentre='Mean',
                                 ErrorError='Confidence Limits')
        block, _ = self.succeeded(result)
        expected = command_json('describe', path, '-i', 'Heights!A1:C13', '--headers', '--mean', '--median', '--sd',
                                '--cl', '99', '--percentiles', '--box-plot', '--box-title', 'Heights',
                                '--error-plot', '--error-title', 'Means', '--error-centre', 'Mean',
                                '--error-bars', 'Confidence Limits')
        self.assertSameBlock(cells(document, block), expected)
        sheet, _ = split_reference(block)
        # The box plot's price series become one candlestick series; the median comes twice, as
        # the box builder adds it (the second on the secondary axis).
        self.assertEqual(charts_on(document, sheet), [
            ('Heights', ('CandleStickChartType', 'LineChartType'), 3, 0),
            ('Means', ('LineChartType',), 1, 1),
        ])
        # The whole run is one undo step named as the command.
        self.assertEqual(document.getUndoManager().getCurrentUndoActionTitle(), 'Descriptive Statistics')
        self.assertKeptThroughFiles(document, sheet)

    def test_circular_with_arguments(self):
        path, document = self.open_copy('headings.xlsx')
        result = OFFICE.dispatch(document, 'Circular', InputRange='Pigeons!A1:B16', Headers=True, GetMean=True,
                                 GetRayleigh=True, Plot=True, OutputRange='Pigeons!E2')
        block, _ = self.succeeded(result)
        self.assertTrue(block.startswith('Pigeons!$E$2:'), block)
        expected = command_json('circular', path, '-i', 'Pigeons!A1:B16', '--headers', '--mean-angle', '--rayleigh',
                                '--plot', '--output', 'Pigeons!E2')
        self.assertSameBlock(cells(document, block), expected)
        self.assertEqual(charts_on(document, 'Pigeons'), [
            ('Kestrel Farm', ('ScatterChartType',), 1, 0),
            ('Millbrook', ('ScatterChartType',), 1, 0),
        ])
        self.assertKeptThroughFiles(document, 'Pigeons')

    def test_frequency_with_arguments(self):
        path, document = self.open_copy('survey.xlsx')
        result = OFFICE.dispatch(document, 'Frequency', InputRange='Survey!A1:A31', Headers=True,
                                 BinRange='Survey!C1:C7', PlotHistogram=True, HistogramTitle='Ages',
                                 PlotCumulative=True)
        block, _ = self.succeeded(result)
        expected = command_json('frequency', path, '-i', 'Survey!A1:A31', '--headers', '--bins', 'Survey!C1:C7',
                                '--histogram', '--title', 'Ages', '--cumulative')
        self.assertSameBlock(cells(document, block), expected)
        sheet, _ = split_reference(block)
        charts = charts_on(document, sheet)
        self.assertEqual(len(charts), 1)
        self.assertEqual(charts[0][0], 'Ages')
        self.assertIn('ColumnChartType', charts[0][1])
        self.assertKeptThroughFiles(document, sheet)

    def test_textbook_arithmetic_gives_the_commands_textbook_block_without_notes(self):
        # Each where a kept rule would change a value: percentiles next to the last of 12 values,
        # Rayleigh's probability, empty cells among the reaction times counted into bins.
        cases = [
            ('plants.xlsx', 'Describe', 'describe',
             dict(InputRange='Heights!A1:C13', Headers=True, GetMean=True, GetPercentile=True, Percentile=10,
                  GetKurtosis=True),
             ['-i', 'Heights!A1:C13', '--headers', '--mean', '--percentiles', '10', '--kurtosis']),
            ('headings.xlsx', 'Circular', 'circular',
             dict(InputRange='Pigeons!A1:B16', Headers=True, GetMean=True, GetRayleigh=True),
             ['-i', 'Pigeons!A1:B16', '--headers', '--mean-angle', '--rayleigh']),
            ('survey.xlsx', 'Frequency', 'frequency',
             dict(InputRange='Survey!A1:A40', Headers=True, BinRange='Survey!C1:C7'),
             ['-i', 'Survey!A1:A40', '--headers', '--bins', 'Survey!C1:C7']),
        ]
        for example, command, analysis, arguments, flags in cases:
            with self.subTest(command=command):
                path, document = self.open_copy(example)
                block, notes = self.succeeded(OFFICE.dispatch(document, command, Textbook=True, **arguments))
                self.assertSameBlock(cells(document, block), command_json(analysis, path, *flags, '--textbook'))
                self.assertEqual(notes, [])

    def test_notes_on_kept_rules_come_back_in_the_commands_words(self):
        # Bearings around 225 degrees: the kept rules read their mean reflected into the fourth quadrant.
        angles_path, angles = self.made_workbook('bearings.xlsx', 'A1:A5',
                                                 (('Bearing',), (200.0,), (215.0,), (235.0,), (250.0,)))
        plants_path, plants = self.open_copy('plants.xlsx')
        cases = [
            (plants, plants_path, 'Describe', 'describe',
             dict(InputRange='Heights!A1:C13', Headers=True, GetPercentile=True, Percentile=10),
             ['-i', 'Heights!A1:C13', '--headers', '--percentiles', '10']),
            (angles, angles_path, 'Circular', 'circular', dict(InputRange='Sheet1!A1:A5', Headers=True, GetMean=True),
             ['-i', 'Sheet1!A1:A5', '--headers', '--mean-angle']),
        ]
        for document, path, command, analysis, arguments, flags in cases:
            with self.subTest(command=command):
                block, notes = self.succeeded(OFFICE.dispatch(document, command, **arguments))
                report = command_report(analysis, path, *flags)
                self.assertSameBlock(cells(document, block), report['block'])
                self.assertTrue(notes)
                self.assertEqual(notes, report['warnings'])

    def test_a_failure_finishes_in_the_commands_words_and_changes_nothing(self):
        # A text among the numbers, in a workbook saved and opened again, so that it starts unmodified.
        path, document = self.made_workbook('text among numbers.xlsx', 'A1:B5',
                                            (('a', 'b'), (1.0, 2.0), (3.0, 'x'), (5.0, 6.0), (7.0, 8.0)))
        before = snapshot(document)
        cases = [
            ('Describe', 'describe', dict(InputRange='Sheet1!A1:B5', Headers=True, GetMean=True), ['--mean']),
            ('Circular', 'circular', dict(InputRange='Sheet1!A1:B5', Headers=True), []),
            ('Frequency', 'frequency', dict(InputRange='Sheet1!A1:B5', Headers=True, PlotHistogram=True),
             ['--histogram']),
            # An argument the command does not take is refused before anything runs.
            ('Describe', None, dict(InputRange='Sheet1!A1:B5', GetMeen=True), None),
        ]
        for command, analysis, arguments, flags in cases:
            with self.subTest(command=command, arguments=sorted(arguments)):
                result = OFFICE.dispatch(document, command, **arguments)
                self.assertEqual(result.State, FAILURE)
                self.assertEqual(len(result.Result), 1, result.Result)
                if analysis is not None:
                    self.assertEqual(result.Result[0], command_failure(analysis, path, '-i', 'Sheet1!A1:B5',
                                                                       '--headers', *flags))
                else:
                    self.assertIn('has no argument named "GetMeen"', result.Result[0])
                self.assertEqual(snapshot(document), before)

    def test_an_angle_outside_the_circle_is_named_by_its_cell(self):
        path, document = self.made_workbook('angles.xlsx', 'A1:A4', ((10.0,), (20.0,), (400.0,), (30.0,)))
        result = OFFICE.dispatch(document, 'Circular', InputRange='Sheet1!A1:A4')
        self.assertEqual(result.State, FAILURE)
        self.assertEqual(result.Result, (command_failure('circular', path, '-i', 'Sheet1!A1:A4'),))
        self.assertIn('Sheet1!$A$3 holds 400', result.Result[0])

    def test_without_arguments_the_dialog_opens_and_is_cancelled_headless(self):
        # A headless office cancels a modal dialog at once: the dispatch ends as "nothing done",
        # after the dialog was made from the package and filled. The menu's own argument (the
        # key modifier) is no argument.
        _, document = self.open_copy('plants.xlsx')
        before = snapshot(document)
        for command in ('Describe', 'Circular', 'Frequency'):
            for arguments in ({}, {'KeyModifier': 0}):
                with self.subTest(command=command, arguments=arguments):
                    result = OFFICE.dispatch(document, command, **arguments)
                    self.assertEqual(result.State, DONTKNOW, result.Result)
                    self.assertEqual(result.Result, ())
                    self.assertEqual(snapshot(document), before)

    def test_menu_entries_are_merged_into_data_statistics(self):
        provider = OFFICE.context.ServiceManager.createInstanceWithContext(
            'com.sun.star.configuration.ConfigurationProvider', OFFICE.context)
        node = provider.createInstanceWithArguments(
            'com.sun.star.configuration.ConfigurationAccess',
            (prop('nodepath', '/org.openoffice.Office.Addons/AddonUI/OfficeMenuBarMerging'),))
        self.assertIn('org.orvella.statistics', node.getElementNames())
        instruction = node.getByName('org.orvella.statistics').getByName('StatisticsMenu')
        self.assertEqual(instruction.MergePoint, '.uno:DataMenu\\.uno:StatisticsMenu\\.uno:FourierAnalysisDialog')
        self.assertEqual(instruction.MergeCommand, 'AddAfter')
        self.assertEqual(instruction.MergeContext, 'com.sun.star.sheet.SpreadsheetDocument')
        items = instruction.MenuItems
        entries = [(items.getByName(n).URL, items.getByName(n).Title) for n in sorted(items.getElementNames())]
        self.assertEqual(entries, [
            ('private:separator', None),
            ('vnd.orvella:Describe', 'Descriptive Statistics…'),
            ('vnd.orvella:Circular', 'Circular Statistics…'),
            ('vnd.orvella:Frequency', 'Frequency Distribution…'),
        ])


def main():
    global ARGS
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('--oxt', required=True)
    parser.add_argument('--orvella', required=True)
    parser.add_argument('--office', required=True)
    parser.add_argument('--examples', required=True)
    ARGS, rest = parser.parse_known_args()
    unittest.main(argv=[sys.argv[0], '-v', *rest])


if __name__ == '__main__':
    main()
