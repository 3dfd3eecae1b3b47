// Prints a bill from C#, with rows of the program's own.
//
//   regsvr32 QbTdPrinter.dll                       once, see README.txt
//   C:\Windows\Microsoft.NET\Framework64\v4.0.30319\csc.exe PrintBill.cs
//   PrintBill sqlite:C:\shop\sample.db 21
//
// No reference and no generated assembly are needed: the component is called by name. A program that
// is built for x86 needs the DLL of the folder x86, one for x64 that of x64, and one for "Any CPU"
// that of the machine, unless its project says "Prefer 32-bit". With .NET 6 and later the same code
// runs in a project for net6.0-windows.
//
// The object lives in the thread that makes it, which must be [STAThread]; make it, use it and let it
// go there. A window's thread is one already.
using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

// What Fields(name) answers.
[ComVisible(true)]
[ClassInterface(ClassInterfaceType.AutoDispatch)]
public class Field
{
    public object Value { get; set; }
}

// A record set over rows of the program: the component calls these five members. One of the
// platform's own data objects (ADO) can be handed over as it is.
[ComVisible(true)]
[ClassInterface(ClassInterfaceType.AutoDispatch)]
public class Rows
{
    // What late binding knows as "there is no such column": what shows it stays blank.
    private const int NoSuchColumn = unchecked((int)0x800A0CC1);

    private readonly IList<IDictionary<string, object>> rows;
    private int current;

    public Rows(IList<IDictionary<string, object>> rows)
    {
        this.rows = rows;
    }

    public bool EOF
    {
        get { return current >= rows.Count; }
    }

    // Called for every value that a format shows, so it should be quick. DBNull is what a database
    // calls Null; null would be Empty, which prints the same.
    public Field Fields(string name)
    {
        object value;
        if (!rows[current].TryGetValue(name, out value))
        {
            throw new COMException("there is no column " + name, NoSuchColumn);
        }
        return new Field { Value = value };
    }

    public void MoveNext()
    {
        current++;
    }

    public void MoveFirst()
    {
        current = 0;
    }

    // A second cursor over the same rows.
    public Rows Clone()
    {
        return new Rows(rows);
    }
}

public static class PrintBill
{
    private static IDictionary<string, object> Row(int entry, string item, double quantity, decimal price)
    {
        return new Dictionary<string, object>(StringComparer.OrdinalIgnoreCase)
        {
            { "FInterID", 1 }, // tells the bills apart; the rows of a bill stand together
            { "FEntryID", entry },
            { "FBillNo", "XD-0001" },
            { "FItemName", item },
            { "FQty", quantity },
            { "FPrice", price },
            { "FAmount", (decimal)quantity * price },
        };
    }

    [STAThread]
    public static int Main(string[] arguments)
    {
        if (arguments.Length < 2)
        {
            Console.Error.WriteLine("usage: PrintBill CONNECTION BILLTYPE [FORMAT]");
            return 2;
        }
        Type type = Type.GetTypeFromProgID("QbTdPrinter.Session");
        if (type == null)
        {
            Console.Error.WriteLine("QbTdPrinter is not registered for programs of this kind.");
            return 1;
        }
        var rows = new Rows(new[] { Row(1, "禾田珍珠米", 25, 5.2m), Row(2, "精制食盐", 10, 2.5m) });
        dynamic session = Activator.CreateInstance(type);
        try
        {
            string format = arguments.Length > 2 ? arguments[2] : "";
            session.DoPrint(true, arguments[0], short.Parse(arguments[1]), false, false, rows, format);
            if (session.Delivered)
            {
                Console.WriteLine("printed, pages: " + session.Pages);
                return 0;
            }
            Console.Error.WriteLine("not printed: " + session.Messages);
        }
        catch (COMException failure)
        {
            Console.Error.WriteLine("not printed: " + failure.Message);
        }
        finally
        {
            Marshal.FinalReleaseComObject(session);
        }
        return 1;
    }
}
