// Reads and writes ignore lists with an implementation of keyed archives that is not ours.
//
//   ArchiveTool read FILE           prints the list
//   ArchiveTool write FILE          writes a list of two applications
//   ArchiveTool write-graph FILE    writes an archive of values of many kinds

#import <Foundation/Foundation.h>

@interface TarragonBlacklist : NSObject <NSCoding> {
@public
    NSString* appBundleID;
    NSString* appName;
    NSNumber* ignoreAllAppWindows;
    NSArray* windowsWithTitlesToIgnore;
}
@end

@implementation TarragonBlacklist

- (id)initWithCoder:(NSCoder*)coder {
    if ((self = [super init])) {
        appBundleID = [[coder decodeObjectForKey:@"appBundleID"] copy];
        appName = [[coder decodeObjectForKey:@"appName"] copy];
        ignoreAllAppWindows = [[coder decodeObjectForKey:@"ignoreAllAppWindows"] copy];
        windowsWithTitlesToIgnore = [[coder decodeObjectForKey:@"windowsWithTitlesToIgnore"] copy];
    }
    return self;
}

- (void)encodeWithCoder:(NSCoder*)coder {
    [coder encodeObject:appBundleID forKey:@"appBundleID"];
    [coder encodeObject:appName forKey:@"appName"];
    [coder encodeObject:ignoreAllAppWindows forKey:@"ignoreAllAppWindows"];
    [coder encodeObject:windowsWithTitlesToIgnore forKey:@"windowsWithTitlesToIgnore"];
}

@end

static NSData* archive(id root) {
    NSMutableData* data = [NSMutableData data];
    NSKeyedArchiver* archiver = [[NSKeyedArchiver alloc] initForWritingWithMutableData:data];
    [archiver setOutputFormat:NSPropertyListBinaryFormat_v1_0];
    [archiver encodeObject:root forKey:@"root"];
    [archiver finishEncoding];
    return data;
}

static void print(NSString* text) {
    printf("%s\n", [text UTF8String]);
}

static int readList(NSString* file) {
    id list = [NSKeyedUnarchiver unarchiveObjectWithData:[NSData dataWithContentsOfFile:file]];
    if (![list isKindOfClass:[NSMutableDictionary class]])
        return 1;
    NSArray* keys = [[list allKeys] sortedArrayUsingSelector:@selector(compare:)];
    for (NSString* key in keys) {
        TarragonBlacklist* entry = [NSKeyedUnarchiver unarchiveObjectWithData:[list objectForKey:key]];
        if (![entry isKindOfClass:[TarragonBlacklist class]])
            return 1;
        print([NSString stringWithFormat:@"%@|%@|%@|%@", key, entry->appBundleID, entry->appName,
                        entry->ignoreAllAppWindows == nil ? @"nil"
                            : [entry->ignoreAllAppWindows boolValue] ? @"yes"
                                                                     : @"no"]);
        for (NSString* title in entry->windowsWithTitlesToIgnore)
            print([@"  " stringByAppendingString:title]);
    }
    return 0;
}

static int writeList(NSString* file) {
    NSMutableDictionary* list = [NSMutableDictionary dictionary];
    TarragonBlacklist* editor = [[TarragonBlacklist alloc] init];
    editor->appBundleID = @"org.example.Editor";
    editor->appName = @"Éditeur";
    editor->ignoreAllAppWindows = [NSNumber numberWithBool:NO];
    // The same title twice, and one that can be changed.
    editor->windowsWithTitlesToIgnore = [NSArray arrayWithObjects:@"Untitled*", @"日本 𝄞", @"Untitled*",
                                                 [NSMutableString stringWithString:@"Changing"], @"", nil];
    [list setObject:archive(editor) forKey:@"org.example.Editor"];
    TarragonBlacklist* clock = [[TarragonBlacklist alloc] init];
    clock->ignoreAllAppWindows = [NSNumber numberWithBool:YES];
    [list setObject:archive(clock) forKey:@"org.example.Clock"];
    return [archive(list) writeToFile:file atomically:NO] ? 0 : 1;
}

static int writeGraph(NSString* file) {
    NSArray* shared = [NSArray arrayWithObject:@"shared"];
    NSMutableArray* root = [NSMutableArray arrayWithObjects:[NSNumber numberWithInt:42], [NSNumber numberWithInt:-42],
                                           [NSNumber numberWithLongLong:1234567890123LL],
                                           [NSNumber numberWithDouble:2.5], [NSNumber numberWithBool:YES], @"text",
                                           [NSMutableString stringWithString:@"mutable"],
                                           [NSData dataWithBytes:"\1\2" length:2],
                                           [NSMutableData dataWithBytes:"\3\4\5" length:3], shared, shared,
                                           [NSDictionary dictionaryWithObject:@"value" forKey:@"key"], nil];
    return [archive(root) writeToFile:file atomically:NO] ? 0 : 1;
}

static int perform(NSString* operation, NSString* file) {
    if ([operation isEqualToString:@"read"])
        return readList(file);
    if ([operation isEqualToString:@"write"])
        return writeList(file);
    if ([operation isEqualToString:@"write-graph"])
        return writeGraph(file);
    return 2;
}

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    const int status
        = perform([NSString stringWithUTF8String:arguments[1]], [NSString stringWithUTF8String:arguments[2]]);
    [pool drain];
    return status;
}
